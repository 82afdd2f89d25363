/* The numbers of commands and controls, for the resource script and the program. */

#ifndef RUVEX_PAGE_HOST_IDS_H
#define RUVEX_PAGE_HOST_IDS_H

#define IDR_MENU 1
#define IDR_KEYS 2

#define IDM_OPEN_PICTURE 100
#define IDM_SAVE_PICTURE 101
#define IDM_EXIT 102
#define IDM_UNDO 110
#define IDM_REDO 111
#define IDM_NEXT_PAGE 120
#define IDM_PREVIOUS_PAGE 121
#define IDM_WRITE_REPORT 130
#define IDM_HELP 140

#define IDC_TABS 200
#define IDC_VIEWER 201
#define IDC_TIME 202
#define IDC_STATUS 203

#endif
