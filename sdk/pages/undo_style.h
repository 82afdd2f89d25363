// How the writes of a property page become undo steps.

#pragma once

#include "sdk/com/com_ptr.h"

class CDSBasePropertyPage;
struct IDSPageSite;

/// Says to which undo step a write belongs. 0 and 1 are fixed; any other number identifies a
/// bracket and is given out by the host when the bracket begins.
using UNDO_STYLE = std::uint32_t;

/// The write joins the interaction that is under way, or else is a step of its own.
inline constexpr UNDO_STYLE DSUNDO_JOIN = 0;
/// The write is a step of its own.
inline constexpr UNDO_STYLE DSUNDO_OWN_STEP = 1;

/// The user's command on a control: which control, the code of its notification, and its window.
/// All zero if there was none.
struct tagDSCTLCOMMANDNOTIFY {
    UINT controlId = 0;
    UINT code = 0;
    void* window = nullptr;
};
using DSCTLCOMMANDNOTIFY = tagDSCTLCOMMANDNOTIFY;

/// Opens and closes the undo bracket of a page: all writes with the bracket's style are one undo
/// step, which the host names after the command. A bracket without writes is no step.
class DSSDK_API CDSUndoStyleMgr {
public:
    /// `page` outlives this object.
    explicit CDSUndoStyleMgr(CDSBasePropertyPage* page);
    CDSUndoStyleMgr(const CDSUndoStyleMgr&) = delete;
    CDSUndoStyleMgr& operator=(const CDSUndoStyleMgr&) = delete;
    ~CDSUndoStyleMgr();

    /// Begins a bracket and stores its style in `*style`, or DSUNDO_OWN_STEP if the page has no
    /// host. With a nonzero `countNested`, a Begin inside a bracket counts and continues the same
    /// bracket; with 0 it fails with E_UNEXPECTED.
    HRESULT Begin(DSCTLCOMMANDNOTIFY command, UNDO_STYLE* style, int countNested);
    /// Ends the bracket with the outermost call. E_UNEXPECTED without a bracket.
    HRESULT End();

private:
    HRESULT open(DSCTLCOMMANDNOTIFY command);

    CDSBasePropertyPage* page_;
    /// The host where the open bracket was begun; the page may have left it since.
    ComPtr<IDSPageSite> site_;
    UNDO_STYLE style_ = DSUNDO_OWN_STEP;
    int depth_ = 0;
};
