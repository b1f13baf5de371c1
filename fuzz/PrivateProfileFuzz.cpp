#include "core/list/PrivateProfile.h"

#include <string>
#include <vector>

#include "fuzz/FuzzInput.h"

namespace {

constexpr std::wstring_view kSections[] = {L"s", L"SCVShchedulerTask1", L"SCVShchedulerTaskList", L"\u0416"};
constexpr std::wstring_view kKeys[] = {L"k", L"CommandLine", L"TaskCount", L"\u00e9"};
const std::wstring kValues[] = {
    L"v", L"", L"'it''s'", L" \"q ", L"\u00e9\u20ac", L"\u0416", L"\xd83d\xde00", L"a\xd800"};

using Values = std::vector<std::optional<std::wstring>>;

std::vector<Values> Answers(const CPrivateProfile& profile) {
    std::vector<Values> all;
    for (const auto section : kSections) {
        all.push_back(profile.GetStrings(section, kKeys));
    }
    return all;
}

std::vector<std::wstring> Names(const CPrivateProfile& profile) {
    std::vector<std::wstring> names;
    profile.ForEachSection([&names](std::wstring_view name) { names.emplace_back(name); });
    return names;
}

// The value as it is read after it was written.
std::wstring AsRead(std::wstring value) {
    const auto first = value.find_first_not_of(L' ');
    value = first == std::wstring::npos ? L"" : value.substr(first, value.find_last_not_of(L' ') + 1 - first);
    const bool quoted =
        value.size() > 1 && value.front() == value.back() && (value[0] == L'\'' || value[0] == L'"');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

// The first three characters choose the edits: two bits for the section, two for the key, three for the
// value. The rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kEdits = 3;
    if (size < kEdits) {
        return 0;
    }
    const std::string bytes(reinterpret_cast<const char*>(data + kEdits), size - kEdits);
    CPrivateProfile profile(bytes);
    Require(profile.Serialise() == bytes);
    for (std::size_t i = 0; i < kEdits; ++i) {
        const std::size_t section = data[i] & 3;
        const std::size_t key = data[i] >> 2 & 3;
        const std::wstring& value = kValues[data[i] >> 4 & 7];
        std::vector<Values> expected = Answers(profile);
        const bool there = profile.HasSection(kSections[section]);
        const std::size_t sections = Names(profile).size();
        const std::string before = profile.Serialise();
        if (data[i] >= 0x80) {
            Require(profile.RemoveSection(kSections[section]) == there);
            Require(Names(profile).size() == sections - (there ? 1 : 0));
            expected[section] =
                profile.GetStrings(kSections[section], kKeys);  // of the next one of that name
        } else {
            const CPrivateProfile::Entry entry{kKeys[key], value};
            profile.SetStrings(kSections[section], {&entry, 1});
            expected[section][key] = AsRead(value);
            const std::string after = profile.Serialise();
            if (!there && DetectEncoding(after) == DetectEncoding(before)) {
                Require(after.starts_with(before.substr(0, before.empty() ? 0 : before.size() - 1)));
            }
            profile.SetStrings(kSections[section], {&entry, 1});
            Require(profile.Serialise() == after);
        }
        // The text in memory and the text written and read again give the same values.
        const CPrivateProfile again(profile.Serialise());
        Require(Answers(profile) == expected);
        Require(Answers(again) == expected);
        Require(Names(again) == Names(profile));
    }
    return 0;
}
