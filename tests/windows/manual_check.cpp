#include "tests/windows/manual_check.h"

#include <chrono>
#include <optional>
#include <set>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "sdk/registry/registry_key.h"
#include "tests/windows/recorded_shell.h"

namespace ruvex::test {
namespace {

const std::wstring kBelowProgramFiles =
    L"\\Osterlin\\Velmar 4.3 for DS10 (64bit)\\Documentation\\Velmar4.3.pdf";
constexpr const wchar_t* kProgramFilesKey = L"Software\\Microsoft\\Windows\\CurrentVersion";
constexpr const wchar_t* kProgramFilesValue = L"ProgramFilesDir";

/// Replaces the folder of installed programs in the registry. The destructor restores it.
class ProgramFiles {
public:
    ProgramFiles() : key_(RegistryKey::create(kProgramFilesKey)) {
        if (key_) before_ = key_.text(kProgramFilesValue);
    }
    ProgramFiles(const ProgramFiles&) = delete;
    ProgramFiles& operator=(const ProgramFiles&) = delete;
    ~ProgramFiles() {
        if (before_) {
            set(*before_);
        } else {
            remove();
        }
    }

    explicit operator bool() const { return before_.has_value(); }
    bool set(const std::wstring& folder) { return key_ && key_.set(kProgramFilesValue, folder); }
    /// Stores the characters without the zero that ends a text.
    bool setUnterminated(const std::wstring& folder) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kProgramFilesKey, 0, KEY_SET_VALUE, &key) != 0) {
            return false;
        }
        const auto bytes = static_cast<DWORD>(folder.size() * sizeof(wchar_t));
        const LONG status = RegSetValueExW(key, kProgramFilesValue, 0, REG_SZ,
                                           reinterpret_cast<const BYTE*>(folder.c_str()), bytes);
        RegCloseKey(key);
        return status == ERROR_SUCCESS;
    }
    bool remove() { return key_ && key_.remove(kProgramFilesValue); }

private:
    RegistryKey key_;
    std::optional<std::wstring> before_;
};

std::wstring folderOfLength(std::size_t characters) {
    const std::wstring root = L"C:\\";
    return root + std::wstring(characters - root.size(), L'x');
}

void checkTexts(Checks& checks, PageHost& host) {
    const Page help = host.open(kHelpPageId);
    checks.expect(textOf(item(help, IDC_COPYRIGHT)) == L"Copyright 2026 The V_Ruvex authors" &&
                      textOf(item(help, IDC_MAKER)) == L"The V_Ruvex authors" &&
                      textOf(item(help, IDC_ABOUT_LAST_LINE)).empty() &&
                      textOf(item(help, IDC_PRODUCT)) == L"V_Ruvex 0.1.0, for hosts of version 10",
                  "the help page names the product, its makers and the copyright");
    checks.expect(
        textOf(item(help, IDC_DESCRIPTION)) ==
            L"V_Ruvex simulates faulty television reception and video winding effects. Noise, "
            L"picture breakup, roll, colour breakup and much more can be introduced.\n"
            L"The 'Master Breakup' is an overall control, each effect has it's own 'threshold', "
            L"when the 'Master Breakup' is over this threshold, the effect will start to kick in. "
            L"So by animating 'Master Breakup' (or using it's own 'Breakup Variation' parameter) "
            L"the individual V_Ruvex effects will vary over time.\n",
        "and describes the effect");
}

void checkButtonAndHelp(Checks& checks, PageHost& host) {
    RecordedShell shell(L"V_Ruvex.dll");
    checks.expect(shell.works(), "the module asks the shell");
    click(host.open(kHelpPageId), IDC_ONLINE_HELP);
    checks.expect(
        shell.files == std::vector<std::wstring>{L"C:\\Program Files" + kBelowProgramFiles},
        "the button opens the manual");
    for (const PageKind& kind : kPages) {
        checks.expect(host.open(kind.classId)->page().Help(nullptr) == S_OK, "so does Help");
    }
    checks.expect(shell.files.size() == 9, "on each page");
}

/// The module reads the folder of installed programs into a buffer of 130 characters.
void checkProgramFiles(Checks& checks, PageHost& host) {
    RecordedShell shell(L"V_Ruvex.dll");
    const Page page = host.open(kHelpPageId);
    const auto opened = [&] {
        shell.files.clear();
        click(page, IDC_ONLINE_HELP);
        return shell.files.size() == 1 ? shell.files.front() : L"";
    };
    const std::wstring fallback = L"C:Program Files" + kBelowProgramFiles;
    {
        ProgramFiles folder;
        checks.expect(static_cast<bool>(folder), "the registry names the folder of programs");
        checks.expect(folder.set(folderOfLength(129)), "which can be another");
        checks.expect(opened() == folderOfLength(129) + kBelowProgramFiles,
                      "a folder of 129 characters is read");
        folder.set(folderOfLength(130));
        checks.expect(opened() == fallback, "one of 130 does not fit");
        checks.expect(folder.setUnterminated(folderOfLength(129)), "it can lack its zero");
        checks.expect(opened() == folderOfLength(129) + kBelowProgramFiles,
                      "129 characters without a zero are read");
        folder.setUnterminated(folderOfLength(130));
        checks.expect(opened() == fallback, "130 characters without a zero do not fit");
        folder.set(L"D:\\100%d %s");
        checks.expect(opened() == L"D:\\100%d %s" + kBelowProgramFiles,
                      "a percent sign stays in its name");
        folder.remove();
        checks.expect(opened() == fallback, "without the value the fall-back folder is used");
    }
    checks.expect(opened() == L"C:\\Program Files" + kBelowProgramFiles, "the old one is back");
}

BOOL CALLBACK addWindow(HWND window, LPARAM windows) {
    reinterpret_cast<std::set<HWND>*>(windows)->insert(window);
    return TRUE;
}

/// All top-level windows of the desktop, of any process.
std::set<HWND> topLevelWindows() {
    std::set<HWND> windows;
    EnumWindows(addWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

/// Asks the system's shell for the manual, of which there is none here.
void checkMissingManual(Checks& checks, PageHost& host) {
    const std::wstring manual = L"C:\\Program Files" + kBelowProgramFiles;
    checks.expect(GetFileAttributesW(manual.c_str()) == INVALID_FILE_ATTRIBUTES,
                  "no manual is installed");
    const Page page = host.open(kHelpPageId);
    const std::set<HWND> before = topLevelWindows();
    checks.expect(!before.empty(), "there are top-level windows");
    const auto start = std::chrono::steady_clock::now();
    checks.expect(page->page().Help(nullptr) == S_OK, "Help succeeds without a manual");
    const auto took = std::chrono::steady_clock::now() - start;
    checks.expect(took < std::chrono::seconds(1), "in less than a second");
    checks.expect(topLevelWindows() == before, "and opens no window");
}

}  // namespace

void checkManual(Checks& checks, PageHost& host) {
    checkTexts(checks, host);
    checkButtonAndHelp(checks, host);
    checkProgramFiles(checks, host);
    checkMissingManual(checks, host);
}

}  // namespace ruvex::test
