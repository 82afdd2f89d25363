// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
#include <commdlg.h>
// clang-format on

#include "tools/page_host/main_window.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "runtime/error.h"
#include "sdk/com/utf8.h"
#include "tools/page_host/message_font.h"
#include "tools/page_host/page_host_ids.h"
#include "tools/page_host/report.h"

namespace ruvex::page_host {
namespace {

/// Another thread has posted a task.
constexpr UINT kRunTasks = WM_APP;

/// In pixels.
SIZE smallestViewer() {
    constexpr int kLines = 14;
    const int height = kLines * textSize(L"X").cy;
    return {height * 4 / 3, height};
}

constexpr wchar_t kPictureFiles[] =
    L"Pictures\0*.png;*.jpg;*.jpeg;*.bmp;*.tif;*.tiff\0All files\0*.*\0";
constexpr wchar_t kPngFiles[] = L"PNG pictures\0*.png\0";

using FileDialog = BOOL(WINAPI*)(OPENFILENAMEW*);

/// Asks for a file; no value if the user cancels. Throws runtime::Error.
std::optional<std::filesystem::path> askForFile(HWND owner, FileDialog open, const wchar_t* filter,
                                                DWORD flags) {
    constexpr std::size_t kLongestPath = 32768;
    std::wstring name(kLongestPath, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter;
    dialog.lpstrFile = name.data();
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.lpstrDefExt = L"png";
    dialog.Flags = flags;
    if (open(&dialog)) return name.c_str();
    const DWORD error = CommDlgExtendedError();
    if (error != 0) {
        throw runtime::Error("the dialog for files fails with error " + std::to_string(error));
    }
    return std::nullopt;
}

/// A menu takes a single '&' as the mark of a letter to press.
std::wstring menuText(const std::wstring& text) {
    std::wstring doubled;
    for (const wchar_t character : text) {
        doubled += character;
        if (character == L'&') doubled += character;
    }
    return doubled;
}

void nameStep(HMENU menu, UINT command, const std::wstring& verb, const std::wstring& step,
              const wchar_t* key) {
    std::wstring text = verb;
    if (!step.empty()) text += L' ' + menuText(step);
    text += key;
    ModifyMenuW(menu, command, MF_BYCOMMAND | MF_STRING, command, text.c_str());
    EnableMenuItem(menu, command, MF_BYCOMMAND | (step.empty() ? MF_GRAYED : MF_ENABLED));
}

/// The system translates no keys into commands while the mouse is captured, but a report may be
/// wanted during a drag.
bool isReportKey(const MSG& message) {
    return message.message == WM_KEYDOWN && message.wParam == VK_F12;
}

}  // namespace

MainWindow::MainWindow(Picture picture, std::filesystem::path report) : report_(std::move(report)) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
    create({.className = L"RuvexPageHost",
            .title = L"V_Ruvex",
            .style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
            .extendedStyle = WS_EX_CONTROLPARENT,
            .menu = LoadMenuW(program, MAKEINTRESOURCEW(IDR_MENU))});
    queue_ = std::make_unique<DSUserInterfaceQueue>(
        [window = handle()] { PostMessageW(window, kRunTasks, 0, 0); });
    tabs_ = std::make_unique<PageTabs>(handle(), IDC_TABS);
    viewer_ = std::make_unique<ViewerWindow>(handle(), IDC_VIEWER);
    statusBar_ = std::make_unique<StatusBar>(handle(), IDC_STATUS);
    openEffect(makeEffect(std::move(picture)), 0);
    timeBar_ = std::make_unique<TimeBar>(handle(), IDC_TIME, effect_->frameRate());
    fitToContents();
}

MainWindow::~MainWindow() {
    closeEffect();
}

std::unique_ptr<EditedEffect> MainWindow::makeEffect(Picture picture) {
    return std::make_unique<EditedEffect>(std::move(picture), [this] { viewer_->frameChanged(); });
}

void MainWindow::openEffect(std::unique_ptr<EditedEffect> effect, int front) {
    effect_ = std::move(effect);
    viewer_->show(effect_.get());
    tabs_->open(*effect_, front);
    SetWindowTextW(handle(), (effect_->pictureName() + L" - V_Ruvex").c_str());
}

void MainWindow::closeEffect() {
    if (tabs_) tabs_->close();
    if (viewer_) viewer_->show(nullptr);
    effect_.reset();
}

/// The project frame has the picture's size, so that another picture needs another effect.
void MainWindow::replacePicture(Picture picture) {
    // A number that has the focus enters what was typed into it.
    SetFocus(tabs_->handle());
    auto next = makeEffect(std::move(picture));
    next->replaceStates(effect_->states());
    const int front = std::max(0, tabs_->front());
    closeEffect();
    openEffect(std::move(next), front);
    timeBar_->showFrame(0);
    arrange();
}

SIZE MainWindow::sizeAround(SIZE viewer) const {
    const SIZE pages = tabs_->size();
    RECT inside{
        0, 0, pages.cx + 3 * gap() + viewer.cx,
        2 * gap() + std::max(pages.cy, viewer.cy + TimeBar::height()) + statusBar_->height()};
    AdjustWindowRectEx(&inside, WS_OVERLAPPEDWINDOW, TRUE, WS_EX_CONTROLPARENT);
    return {inside.right - inside.left, inside.bottom - inside.top};
}

/// As large as the pages and the picture need, if the screen has the room.
void MainWindow::fitToContents() {
    const SIZE wanted = sizeAround({effect_->width() + 2 * ViewerLayout::margin(),
                                    effect_->height() + 2 * ViewerLayout::margin()});
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    const LONG width = std::min(wanted.cx, screen.right - screen.left);
    const LONG height = std::min(wanted.cy, screen.bottom - screen.top);
    SetWindowPos(handle(), nullptr, screen.left + (screen.right - screen.left - width) / 2,
                 screen.top + (screen.bottom - screen.top - height) / 2, width, height,
                 SWP_NOZORDER);
}

void MainWindow::arrange() {
    if (!timeBar_) return;
    statusBar_->fitToParent();
    SIZE inside = clientSize(handle());
    inside.cy -= statusBar_->height();
    tabs_->moveTo({gap(), gap()});
    const LONG left = tabs_->size().cx + 2 * gap();
    const LONG right = std::max(left + smallestViewer().cx, inside.cx - gap());
    const LONG bottom =
        std::max<LONG>(gap() + smallestViewer().cy, inside.cy - gap() - TimeBar::height());
    MoveWindow(viewer_->handle(), left, gap(), right - left, bottom - gap(), TRUE);
    timeBar_->moveTo({left, bottom, right, bottom + TimeBar::height()});
}

POINT MainWindow::smallestSize() const {
    if (!statusBar_) return {};
    const SIZE smallest = sizeAround(smallestViewer());
    return {smallest.cx, smallest.cy};
}

/// The control that had the focus when the user went to another window gets it back.
void MainWindow::rememberFocus(bool active) {
    if (!active) {
        focus_ = GetFocus();
    } else if (focus_ && IsChild(handle(), focus_)) {
        SetFocus(focus_);
    }
}

/// A control that is disabled or hidden while it has the focus, by undo for example, leaves the
/// focus where no key reaches a control.
void MainWindow::keepFocus() {
    if (!handle() || GetActiveWindow() != handle()) return;
    const HWND focus = GetFocus();
    const bool usable = focus && focus != handle() && !tabs_->isPage(focus) &&
                        IsWindowVisible(focus) && IsWindowEnabled(focus);
    if (!usable) SetFocus(tabs_->handle());
}

void MainWindow::chooseTime() {
    const int frame = timeBar_->frame();
    if (frame == timeBar_->shownFrame()) return;
    timeBar_->showFrame(frame);
    effect_->editor().setTime(runtime::frameTime(frame, effect_->frameRate()));
    viewer_->frameChanged();
}

void MainWindow::openPicture() {
    constexpr DWORD kFlags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
    const auto file = askForFile(handle(), GetOpenFileNameW, kPictureFiles, kFlags);
    if (file) replacePicture(readPicture(*file));
}

void MainWindow::savePicture() {
    const Picture picture = effect_->render();
    const auto file = askForFile(handle(), GetSaveFileNameW, kPngFiles, OFN_OVERWRITEPROMPT);
    if (!file) return;
    writePicture(*file, picture);
    statusBar_->show(L"Picture written to " + file->wstring());
}

void MainWindow::reportState() {
    writeReport(report_, handle(), *tabs_, *viewer_, *effect_);
    statusBar_->show(L"Report written to " + report_.wstring());
}

void MainWindow::nameSteps() {
    const runtime::UndoStack& steps = effect_->editor().undoStack();
    const HMENU menu = GetMenu(handle());
    nameStep(menu, IDM_UNDO, L"&Undo", steps.undoName(), L"\tCtrl+Z");
    nameStep(menu, IDM_REDO, L"&Redo", steps.redoName(), L"\tCtrl+Y");
}

bool MainWindow::onCommand(int command) {
    switch (command) {
        case IDM_OPEN_PICTURE:
            return openPicture(), true;
        case IDM_SAVE_PICTURE:
            return savePicture(), true;
        case IDM_WRITE_REPORT:
            return reportState(), true;
        case IDM_EXIT:
            return SendMessageW(handle(), WM_CLOSE, 0, 0), true;
        case IDM_UNDO:
            return effect_->editor().undo(), true;
        case IDM_REDO:
            return effect_->editor().redo(), true;
        case IDM_NEXT_PAGE:
            return tabs_->selectNext(1), true;
        case IDM_PREVIOUS_PAGE:
            return tabs_->selectNext(-1), true;
        case IDM_HELP:
            return tabs_->showHelp(), true;
        default:
            return false;
    }
}

LRESULT MainWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kRunTasks:
            queue_->run();
            return 0;
        case WM_COMMAND:
            if (onCommand(LOWORD(wParam))) return 0;
            break;
        case WM_INITMENUPOPUP:
            nameSteps();
            return 0;
        case WM_NOTIFY:
            if (reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGE) tabs_->selected();
            return 0;
        case WM_HSCROLL:
            chooseTime();
            return 0;
        case WM_SIZE:
            arrange();
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = smallestSize();
            return 0;
        case WM_ACTIVATE:
            rememberFocus(LOWORD(wParam) != WA_INACTIVE);
            return 0;
        case WM_CLOSE:
            closeEffect();
            DestroyWindow(handle());
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            break;
    }
    return defaultAnswer(message, wParam, lParam);
}

void MainWindow::dispatch(MSG& message, HACCEL keys) {
    if (isReportKey(message)) {
        SendMessageW(handle(), WM_COMMAND, IDM_WRITE_REPORT, 0);
        return;
    }
    if (TranslateAcceleratorW(handle(), keys, &message)) return;
    if (IsDialogMessageW(handle(), &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void MainWindow::run(int showCommand) {
    ShowWindow(handle(), showCommand);
    SetFocus(tabs_->handle());
    const HACCEL keys = LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_KEYS));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        dispatch(message, keys);
        keepFocus();
    }
}

}  // namespace ruvex::page_host
