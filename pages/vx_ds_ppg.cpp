#include "pages/vx_ds_ppg.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <utility>

#include "host/base/class_ids.h"
#include "pages/manual.h"
#include "parameters/control_rules.h"
#include "parameters/reset_values.h"

namespace ruvex {

/// Makes a notification known to the page's records. A notification that arrives while the page
/// handles another one does not lose that one.
class NotificationScope {
public:
    NotificationScope(VxDsPPG& page, const GUID& id, const DSVARIANT* const& value)
        : page_(page),
          outerProperty_(std::exchange(page.changedProperty, &id)),
          outerValue_(std::exchange(page.changedValue, &value)) {}
    ~NotificationScope() {
        page_.changedProperty = outerProperty_;
        page_.changedValue = outerValue_;
    }
    NotificationScope(const NotificationScope&) = delete;
    NotificationScope& operator=(const NotificationScope&) = delete;

private:
    VxDsPPG& page_;
    const GUID* outerProperty_;
    const DSVARIANT* const* outerValue_;
};

namespace {

/// Characters of the longest text of a static, the terminating zero included.
constexpr std::size_t kMostText = 2048;

}  // namespace

VxDsPPG::VxDsPPG(UINT dialogId, UINT titleId, const char* name)
    : CDSPropertyPage(dialogId, titleId),
      undoManager(this),
      pageName_(name ? std::optional<std::string>(name) : std::nullopt) {}

VxDsPPG::~VxDsPPG() = default;

HRESULT VxDsPPG::OnInitDialog() {
    const HRESULT status = CDSPropertyPage::OnInitDialog();
    if (FAILED(status)) return status;
    prepareControls();
    linkEffect(kRuvexClassId);
    return S_OK;
}

HRESULT VxDsPPG::Show(UINT command) {
    HRESULT status = CDSPropertyPage::Show(command);
    if (FAILED(status)) return status;
    isShown = command == SW_SHOWNORMAL || command == SW_SHOW;
    if (isShown && effect) effect->pageActivated(pageName_ ? pageName_->c_str() : nullptr, 0, 0);
    status = CDSPropertyPage::Show(command);
    if (SUCCEEDED(status)) updateControls();
    return status;
}

HRESULT VxDsPPG::Help(LPCOLESTR) {
    OpenManual();
    return S_OK;
}

HRESULT VxDsPPG::PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown* object,
                                 const DSPARAMS* params, unsigned short classification) {
    const ComPtr<IPropertyPage> kept(this);
    const HRESULT status =
        CDSPropertyPage::PropertyChanged(id, value, object, params, classification);
    if (FAILED(status) || (notifySuppress > 0 && canSuppress())) return status;
    const NotificationScope notification(*this, id, value);
    reactToNotification();
    return status;
}

HRESULT VxDsPPG::UpdateAnimatedControls(double time) {
    const HRESULT status = CDSPropertyPage::UpdateAnimatedControls(time);
    // A colour can change with the time.
    if (const VxPPGColourGroup* group = colourGroup()) group->UpdateChipFromValues();
    return status;
}

void VxDsPPG::BeginPageUndo(UNDO_STYLE* out) {
    undoManager.Begin(GetLastCommand(), &undoStyle, 1);
    if (out) *out = undoStyle;
}

void VxDsPPG::EndPageUndo() {
    undoManager.End();
    undoStyle = DSUNDO_OWN_STEP;
}

IUnknown* VxDsPPG::GetInteractiveTool() const {
    return effect ? effect->overlay.tool() : nullptr;
}

IUnknown* VxDsPPG::ConnectInteractiveTool() {
    effectReference_.beginOverlay();
    return GetInteractiveTool();
}

void VxDsPPG::linkEffect(const GUID& classId) {
    effectReference_.connect(GetInspectedObject(), classId);
    effect = effectReference_.effect();
    ConnectInteractiveTool();
}

void VxDsPPG::SetItemText(UINT id, std::string_view text) {
    std::array<wchar_t, kMostText> wide;
    const std::string_view kept = text.substr(0, kMostText - 1);
    const auto end = std::ranges::transform(kept, wide.begin(), [](char byte) {
                         return static_cast<wchar_t>(static_cast<unsigned char>(byte));
                     }).out;
    *end = L'\0';
    SendMessageW(item(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.data()));
}

void VxDsPPG::fillRecords(std::span<const PageEntry> entries) {
    entries_ = entries;
    for (const PageEntry& entry : entries) {
        if (!entry.record) continue;
        VxPPGPair& pair = entry.record->pair(*this);
        pair.page = this;
        pair.controlId = entry.controlId;
        pair.labelId = entry.labelId;
        entry.record->fill(*this, entry);
    }
}

void VxDsPPG::prepareControls() {
    for (const PageEntry& entry : entries_) {
        if (!entry.record || entry.controlId == 0) continue;
        const ParameterRow& parameter = row(entry.id);
        if (colourComponent(entry.id)) continue;
        if (entry.localOnly) entry.record->set(*this, 0.0);
        entry.record->fillCombo(*this, parameter);
        if (const auto range = parameter.enteredRange()) {
            entry.record->pair(*this).SetRange(range->low, range->high);
        }
    }
    if (const VxPPGColourGroup* group = colourGroup()) group->SetNumberRanges();
}

std::optional<std::size_t> VxDsPPG::colourComponent(ParameterId id) {
    const VxPPGColourGroup* const group = colourGroup();
    return group ? group->componentOf(row(id).identifier) : std::nullopt;
}

const PageEntry* VxDsPPG::entryOf(ParameterId id) const {
    const auto isRecord = [id](const PageEntry& entry) { return entry.record && entry.id == id; };
    const auto found = std::ranges::find_if(entries_, isRecord);
    return found == entries_.end() ? nullptr : &*found;
}

void VxDsPPG::writeValues(std::span<const ParameterValue> values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto component = colourComponent(values[i].id);
        if (component == 0u) {
            writeColour(values.subspan(i));
        } else if (const PageEntry* entry = entryOf(values[i].id); entry && !component) {
            entry->record->set(*this, values[i].value);
        }
    }
}

void VxDsPPG::writeColour(std::span<const ParameterValue> values) {
    float rgba[4] = {};
    for (const ParameterValue& value : values) {
        if (const auto component = colourComponent(value.id)) {
            rgba[*component] = static_cast<float>(value.value);
        }
    }
    colourGroup()->SetColour(rgba);
}

void VxDsPPG::applyRules(ParameterPage page) {
    const auto isOfPage = [page](const ControlRule& rule) { return rule.page == page; };
    // Controls that share their place are all hidden before one of them is shown.
    for (const ControlRule& rule : controlRules() | std::views::filter(isOfPage)) {
        if (rule.state == ControlState::Show) showControls(rule, false);
    }
    for (const ControlRule& rule : controlRules() | std::views::filter(isOfPage)) {
        const PageEntry* const decider = entryOf(rule.decidedBy);
        const bool applies =
            decider && rule.appliesTo(static_cast<int>(decider->record->get(*this)));
        if (rule.state == ControlState::Enable) {
            enableControls(rule, applies);
        } else if (applies) {
            showControls(rule, true);
        }
    }
}

void VxDsPPG::showControls(const ControlRule& rule, bool show) {
    for (const ParameterId id : rule.parameters) {
        const auto component = colourComponent(id);
        if (component == 0u) {
            show ? colourGroup()->Show() : colourGroup()->Hide();
        } else if (const PageEntry* entry = entryOf(id); entry && !component) {
            const VxPPGPair& pair = entry->record->pair(*this);
            show ? pair.Show() : pair.Hide();
        }
    }
}

void VxDsPPG::enableControls(const ControlRule& rule, bool enable) {
    for (const ParameterId id : rule.parameters) {
        if (const PageEntry* entry = entryOf(id)) entry->record->pair(*this).Enable(enable);
    }
}

void VxDsPPG::resetPage(ParameterPage page) {
    BeginPageUndo();
    writeValues(resetValues(page));
    EndPageUndo();
    updateControls();
}

}  // namespace ruvex
