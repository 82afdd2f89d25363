// Links a tool to the object that it edits and to the viewer that shows it.

#pragma once

#include "sdk/com/com_ptr.h"
#include "sdk/viewer/interactive_tool.h"

/// A tool and what it is linked to, or is to be linked to. All three are needed.
struct VWToolLink {
    ComPtr<IUnknown> object;
    ComPtr<IDSViewer> viewer;
    ComPtr<IDSInteractiveTool> tool;

    /// Links the tool to the object, then to the viewer. If one fails, unlinks what was linked and
    /// gives the failure.
    HRESULT connect() const;
    /// Takes the pen from the tool, and unlinks it from the viewer and then from the object.
    void disconnect() const;
};
