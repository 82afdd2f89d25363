#include "pages/manual.h"
#include "sdk/window/window.h"

namespace ruvex {
namespace {

/// Two bytes a character, as the registry has them.
constexpr std::size_t kMostBytes = 260;
constexpr std::size_t kMostCharacters = kMostBytes / 2;

/// Released texts: the installer has used them for all versions. %d is the host's main version.
constexpr const wchar_t* kFallbackFolder = L"C:Program Files";
constexpr const wchar_t* kMaker = L"\\Osterlin\\";
constexpr const wchar_t* kProduct = L"Velmar 4.3 for DS";
constexpr const wchar_t* kHostVersion = L"%d (64bit)";
constexpr const wchar_t* kDocument = L"\\Documentation\\Velmar4.3.pdf";
constexpr int kHost = 10;

std::wstring readTwice(RegistryText& registry) {
    for (int attempt = 0; attempt < 2; ++attempt) {
        wchar_t text[kMostCharacters] = {};
        if (registry.read(text, kMostBytes)) return text;
    }
    return kFallbackFolder;
}

}  // namespace

std::wstring programFilesFolder(RegistryText& registry) {
    if (!registry.open()) return kFallbackFolder;
    const std::wstring folder = readTwice(registry);
    registry.close();
    return folder;
}

std::wstring installedManual(const std::wstring& programFiles) {
    // Only this piece is a format: a percent sign in the folder's name is none.
    wchar_t version[1024] = {};
    wsprintfW(version, kHostVersion, kHost);
    return programFiles + kMaker + kProduct + version + kDocument;
}

}  // namespace ruvex
