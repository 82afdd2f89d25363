// The rows from which a page fills in its records and makes its control map.

#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <type_traits>

#include "pages/ppg_controls.h"
#include "parameters/parameter_table.h"
#include "sdk/pages/base_property_page.h"

namespace ruvex {

struct PageEntry;

/// Access to one record of a page class.
struct RecordAccess {
    DSBoundVariable* bound;
    VxPPGPair& (*pair)(CDSBasePropertyPage& page);
    /// Fills in what all records but the pair have.
    void (*fill)(CDSBasePropertyPage& page, const PageEntry& entry);
    void (*set)(CDSBasePropertyPage& page, double value);
    double (*get)(const CDSBasePropertyPage& page);
    /// Fills the combo box with the row's choices; nothing for other records.
    void (*fillCombo)(CDSBasePropertyPage& page, const ParameterRow& row);
};

/// A record of a page, or a command (`record` is null).
struct PageEntry {
    const RecordAccess* record = nullptr;
    ParameterId id{};
    UINT controlId = 0;  ///< 0: no control on this page
    UINT labelId = 0;    ///< 0: no caption
    DSNotify notify = nullptr;
    bool localOnly = false;
    UINT commandTip = 0;  ///< of a command: the string of its tool-tip
};

namespace detail {

template <class Record>
void fillRecord(Record& record, const PageEntry& entry) {
    record.property = row(entry.id).identifier;
    record.localOnly = entry.localOnly;
    if constexpr (std::is_same_v<Record, VxPPGDoubleControl>) record.animated = true;
}

inline void setRecord(VxPPGIntControl& record, double value) {
    record.Set(static_cast<std::int32_t>(value));
}
inline void setRecord(VxPPGBoolControl& record, double value) {
    record.Set(value != 0.0 ? 1 : 0);
}
inline void setRecord(VxPPGDoubleControl& record, double value) {
    record.Set(value);
}

inline void fillCombo(const VxPPGIntControl& record, const ParameterRow& row) {
    if (row.choices.empty()) return;
    record.ClearCombo();
    for (std::size_t i = 0; i < row.choices.size(); ++i) {
        const bool isDefault = static_cast<int>(i) == row.defaultInt();
        record.AddComboString(static_cast<UINT>(row.choices[i].stringId), isDefault);
    }
}
inline void fillCombo(const VxPPGPair&, const ParameterRow&) {}

/// The member of `Page` that the path of members leads to.
template <class Page, auto... Path>
struct RecordAt {
    static auto& of(CDSBasePropertyPage& page) { return (static_cast<Page&>(page).*....*Path); }
    static const auto& of(const CDSBasePropertyPage& page) {
        return (static_cast<const Page&>(page).*....*Path);
    }

    static constexpr RecordAccess access{
        .bound = [](CDSBasePropertyPage& page) -> void* { return &of(page).value; },
        .pair = [](CDSBasePropertyPage& page) -> VxPPGPair& { return of(page); },
        .fill = [](CDSBasePropertyPage& page,
                   const PageEntry& entry) { fillRecord(of(page), entry); },
        .set = [](CDSBasePropertyPage& page, double value) { setRecord(of(page), value); },
        .get = [](const CDSBasePropertyPage& page) -> double { return of(page).Get(); },
        .fillCombo = [](CDSBasePropertyPage& page,
                        const ParameterRow& parameter) { fillCombo(of(page), parameter); },
    };
};

}  // namespace detail

/// A caption's identifier is its control's plus this.
inline constexpr UINT kCaptionOffset = 1000;

/// A member function of a page as the control map stores it.
template <class Page>
DSNotify notifyOf(void (Page::*function)()) {
    return static_cast<DSNotify>(function);
}

/// A record with a control and a caption, reached by members of `Page`.
template <class Page, auto... Path>
constexpr PageEntry control(ParameterId id, UINT controlId, DSNotify notify = nullptr) {
    return {.record = &detail::RecordAt<Page, Path...>::access,
            .id = id,
            .controlId = controlId,
            .labelId = controlId + kCaptionOffset,
            .notify = notify};
}

/// A record whose control has its own text and no caption.
template <class Page, auto... Path>
constexpr PageEntry checkBox(ParameterId id, UINT controlId, DSNotify notify = nullptr) {
    PageEntry entry = control<Page, Path...>(id, controlId, notify);
    entry.labelId = 0;
    return entry;
}

/// A record that reads and writes a property without a control on this page.
template <class Page, auto... Path>
constexpr PageEntry hidden(ParameterId id) {
    return {.record = &detail::RecordAt<Page, Path...>::access, .id = id};
}

/// A record whose property the host does not store.
constexpr PageEntry localOnly(PageEntry entry) {
    entry.localOnly = true;
    return entry;
}

/// A button or a colour chip.
constexpr PageEntry command(UINT controlId, DSNotify notify, UINT tip) {
    return {.controlId = controlId, .notify = notify, .commandTip = tip};
}

/// Released name and version of all control maps of this family of effects.
inline constexpr const wchar_t* kControlMapName = L"Velmar4.3";
inline constexpr int kControlMapVersion = 1;

/// Flags of the entries of a page.
enum class EntryFlags {
    Own,     ///< bit 4 in the entries of commands and of everything that can't be animated
    Shared,  ///< without bit 4: the crop page, which other effects have too
};

CDSPPGControlMapEntry controlMapEntry(const PageEntry& entry, EntryFlags flags);

/// The control map of a page class, made from its rows. A static object.
template <std::size_t kCount>
class PageControlMap {
public:
    PageControlMap(const PageEntry (&rows)[kCount], EntryFlags flags)
        : entries_(entriesOf(rows, flags)),
          map_(kControlMapName, kControlMapVersion, &CDSBasePropertyPage::m_ControlMap,
               entries_.data()) {}

    const CDSPPGControlMap* initialized() {
        CDSPPGControlMap::Initialize(map_);
        return &map_;
    }

private:
    using Entries = std::array<CDSPPGControlMapEntry, kCount + 1>;

    static Entries entriesOf(const PageEntry (&rows)[kCount], EntryFlags flags) {
        Entries entries{};
        for (std::size_t i = 0; i < kCount; ++i) entries[i] = controlMapEntry(rows[i], flags);
        entries[kCount] = CDSPPGControlMapEntry::terminator();
        return entries;
    }

    Entries entries_;
    CDSPPGControlMap map_;
};

}  // namespace ruvex
