#include "sdk/viewer/tool_link.h"

HRESULT VWToolLink::connect() const {
    HRESULT status = tool->OnLinkToOperator(object.get());
    if (FAILED(status)) return status;
    status = tool->OnLinkToViewer(viewer.get());
    if (FAILED(status)) tool->OnUnlinkFromOperator();
    return status;
}

void VWToolLink::disconnect() const {
    viewer->ReleasePen(tool.get());
    tool->OnUnlinkFromViewer();
    tool->OnUnlinkFromOperator();
}
