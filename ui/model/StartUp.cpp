#include "ui/model/StartUp.h"

#include <algorithm>
#include <cstring>

#include "util/CaseFold.h"

namespace {

constexpr std::wstring_view kHiddenStart = L"background";
constexpr std::size_t kLongestPath = 32767;

std::wstring_view TrimRightUnit(std::wstring_view text, wchar_t unit) noexcept {
    return text.substr(0, text.find_last_not_of(unit) + 1);
}

}  // namespace

bool StartsHidden(std::wstring_view commandLine) noexcept {
    return std::search(commandLine.begin(), commandLine.end(), kHiddenStart.begin(), kHiddenStart.end(),
                       [](wchar_t left, wchar_t right) { return ToUpper(left) == ToUpper(right); }) !=
           commandLine.end();
}

std::wstring StartupCommand(const std::wstring& executablePath) {
    return L'"' + executablePath + L"\" /" + std::wstring(kHiddenStart);
}

std::uint32_t HandOverByteCount(std::wstring_view projectPath) noexcept {
    return static_cast<std::uint32_t>(projectPath.size());
}

std::wstring ReadHandOver(const void* data, std::size_t byteCount) {
    if (data == nullptr) {
        return {};
    }
    std::u16string units(std::min(byteCount / sizeof(char16_t), kLongestPath), u'\0');
    std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    return {units.begin(), units.end()};
}

std::wstring_view TrimVersion(std::wstring_view version) noexcept {
    return TrimRightUnit(TrimRightUnit(version, L'0'), L'.');
}

std::wstring WindowTitle(std::wstring_view caption, std::wstring_view version) {
    std::wstring title(caption);
    if (const std::wstring_view shown = TrimVersion(version); !shown.empty()) {
        title.append(L" ").append(shown);
    }
    return title;
}
