// The page site that the stand-in host gives to a property page.

#pragma once

#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/pages/page_site.h"

namespace ruvex::runtime {

class Editor;

/// Reads the editor's time and writes its session's properties, as steps of its undo stack.
///
/// A write inside a bracket belongs to the innermost open bracket, also a write with the style of
/// an outer one or with DSUNDO_OWN_STEP. Without a bracket, a write with DSUNDO_JOIN or
/// DSUNDO_OWN_STEP is a step, which is named after the property.
class PageSite final : public ComObject<IDSPageSite> {
public:
    explicit PageSite(Editor& editor) : editor_(&editor) {}

    HRESULT GetTime(double* seconds) override;
    /// -1.0 seconds is the current time. E_INVALIDARG for an object other than the session's effect
    /// and for the style of a bracket that is not open.
    HRESULT WriteProperty(IUnknown* object, const GUID& id, double seconds, const VARIANT* value,
                          UNDO_STYLE style) override;
    HRESULT BeginUndo(const DSUNDOINFO* info, UNDO_STYLE* style) override;
    HRESULT EndUndo(UNDO_STYLE style) override;
    HRESULT CancelUndo(UNDO_STYLE style) override;

    /// Ends the brackets that were begun here, and the connection to the editor, which may then be
    /// destroyed. From then on all functions return E_UNEXPECTED.
    void detach();

private:
    Editor* editor_;
    std::vector<UNDO_STYLE> begun_;  ///< May contain brackets that have ended.
};

}  // namespace ruvex::runtime
