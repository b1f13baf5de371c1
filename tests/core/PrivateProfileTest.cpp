#include "core/PrivateProfile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Entries = std::vector<CPrivateProfile::Entry>;

std::string Utf16(std::wstring_view text, bool bigEndian = false) {
    std::string bytes = bigEndian ? "\xfe\xff" : "\xff\xfe";
    EXPECT_TRUE(AppendEncoded(bigEndian ? TextEncoding::Utf16BE : TextEncoding::Utf16LE, text, bytes));
    return bytes;
}

std::string AfterSet(std::string bytes, std::wstring_view section, const Entries& entries) {
    CPrivateProfile profile(std::move(bytes));
    profile.SetStrings(section, entries);
    return profile.Serialise();
}

std::string AfterRemoval(std::string bytes, const std::vector<std::wstring>& sections) {
    CPrivateProfile profile(std::move(bytes));
    for (const std::wstring& section : sections) {
        EXPECT_TRUE(profile.RemoveSection(section));
        EXPECT_EQ(CPrivateProfile(profile.Serialise()).HasSection(section), profile.HasSection(section));
    }
    return profile.Serialise();
}

}  // namespace

// How a text is read, PrivateProfileApiTest compares with the platform; these are where Wine is not like
// Windows.
TEST(PrivateProfile, ReadsAsWindowsDoes) {
    const std::pair<const char*, const wchar_t*> cases[] = {
        {"[s\nk=v\n", L"v"},
        {"[s]b]\nk=v\n", L"v"},
        {"k=0\n[t]\nk=1\n", nullptr},
        {"[s]\n;k=c\nk=v\n", L"v"},
        {"[s]\nk=caf\xe9\x80\n", L"caf\u00e9\u20ac"},
        {"\xef\xbb\xbf[s]\nk=\xc3\xa9\xf0\x9f\x98\x80\n", L"\u00e9\xd83d\xde00"}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(CPrivateProfile(text).GetString(L"s", L"k"),
                  value == nullptr ? std::nullopt : std::optional<std::wstring>(value))
            << text;
    }
}

TEST(PrivateProfile, SetsKeysInPlaceAndNewOnesBehindTheLastLine) {
    struct Case {
        const char* before;
        Entries entries;
        const char* after;
    };
    for (const Case& c : {
             Case{"", {{L"a", L"1"}, {L"b", L"2"}}, "[s]\r\na=1\r\nb=2\r\n"},
             {"[t]\nx=1", {{L"a", L"1"}}, "[t]\nx=1\n[s]\na=1\n"},
             {"[s]\r\n a = 1 \r\n\r\n[t]\r\n", {{L"A", L"1"}}, "[s]\r\n a = 1 \r\n\r\n[t]\r\n"},
             {"[s]\n A = 1 \n;c\n\n[t]\n", {{L"a", L"2"}, {L"B", L"3"}}, "[s]\n A=2\n;c\nB=3\n\n[t]\n"},
             {"[s]\na=1\na=2\n[s]\na=3\n", {{L"a", L"4"}}, "[s]\na=4\na=2\n[s]\na=3\n"},
             {"[s]\na\n", {{L"a", L""}}, "[s]\na=\n"},
             {"[s]\nb=1\na=1", {{L"a", L"2"}, {L"b", L"3"}, {L"c", L"4"}}, "[s]\nb=3\na=2\nc=4\n"},
             {"[s]\na=1", {{L"a", L"2"}}, "[s]\na=2"},
             {"[s]\ra=1\r", {{L"b", L"2"}}, "[s]\ra=1\rb=2\r"},
             {"[s", {{L"a", L"1"}}, "[s\r\na=1\r\n"},
             {"\xef\xbb\xbf[", {{L"a", L"1"}}, "\xef\xbb\xbf[\r\n[s]\r\na=1\r\n"},
             {"[s]\n", {{L"a", std::wstring(L" \"x\ny\0z' ", 9)}}, "[s]\na= \"x y z' \n"},
             {"[s]\nb=0\n", {{L"a", L"1"}, {L"b", L"2"}, {L"A", L"3"}}, "[s]\nb=2\na=3\n"},
             {"[t]\n", {}, "[t]\n"},
         }) {
        EXPECT_EQ(AfterSet(c.before, L"s", c.entries), c.after) << c.before;
    }
}

TEST(PrivateProfile, RemovesHeaderAndKeysOfTheFirstSectionOfThatName) {
    EXPECT_EQ(AfterRemoval("[s]\nk=1\n;c\n\nl\n[t]\n", {L"S"}), ";c\n\n[t]\n");
    EXPECT_EQ(AfterRemoval("[s]\nk=1\n[t]\nx=1\n[s]\nk=2\n[S]\nk=3", {L"s", L"s"}), "[t]\nx=1\n[S]\nk=3");
    EXPECT_EQ(AfterRemoval("[a]\n[b]\n;c", {L"b", L"a"}), ";c");
    EXPECT_FALSE(CPrivateProfile("[s]\n").RemoveSection(L"t"));

    const auto namesOf = [](const CPrivateProfile& any) {
        std::wstring names;
        any.ForEachSection([&names](std::wstring_view name) { names += name; });
        return names;
    };
    CPrivateProfile profile("[a]\nk=1\n\n[b]\nk=2\n;b\n[c]\nk=3\n;c");
    profile.RemoveSection(L"b");
    profile.RemoveSection(L"c");
    profile.SetStrings(L"d", Entries{{L"k", L"4"}});
    profile.SetStrings(L"e", Entries{{L"k", L"5"}});
    EXPECT_EQ(profile.Serialise(), "[a]\nk=1\n\n;b\n;c\n[d]\nk=4\n[e]\nk=5\n");
    EXPECT_EQ(namesOf(profile), L"ade");
    profile.RemoveSection(L"d");
    profile.SetStrings(L"a", Entries{{L"l", L"6"}});
    profile.SetStrings(L"b", Entries{{L"k", L"7"}});
    EXPECT_EQ(profile.Serialise(), "[a]\nk=1\n\n;b\n;c\nl=6\n[e]\nk=5\n[b]\nk=7\n");
    EXPECT_EQ(namesOf(profile), L"aeb");
    EXPECT_EQ(namesOf(CPrivateProfile("[f \t]g]\n[\xe9 ] x\n")), L"f\u00e9");
}

TEST(PrivateProfile, NumbersHaveASignAndABase) {
    const struct {
        const char* text;
        std::int32_t number;
    } cases[] = {{"'", 0},       {"", 77},      {"' \t-12x'", -12}, {"+7", 7}, {"0x1fg", 31},
                 {"-0b101", -5}, {"0o178", 15}, {"0X1", 0},         {"a", 0},  {"4294967295", -1}};
    for (const auto& each : cases) {
        const CPrivateProfile profile(std::string("[\xe9 ]\nn=") + each.text + "\n");
        EXPECT_EQ(profile.GetInt(L"\u00c9", L"n", 77), each.number) << each.text;
    }
}

TEST(PrivateProfile, KeepsTheEncodingUntilItCannotHoldAText) {
    const std::wstring emoji = L"\xd83d\xde00";
    const std::wstring lone = L"a\xd800z";
    EXPECT_EQ(AfterSet("[s]\r\nx=\x80\r\n", L"s", {{L"k", L"\u20ac"}}), "[s]\r\nx=\x80\r\nk=\x80\r\n");
    EXPECT_EQ(AfterSet("[s]\nx=\x80\n", L"s", {{L"k", emoji}}), Utf16(L"[s]\nx=\u20ac\nk=" + emoji + L"\n"));
    EXPECT_EQ(AfterSet("", L"\u0426", {{L"k", L"v"}}), Utf16(L"[\u0426]\r\nk=v\r\n"));
    EXPECT_EQ(AfterSet("", L"s", {{L"\u0426", L"v"}}), Utf16(L"[s]\r\n\u0426=v\r\n"));
    EXPECT_EQ(AfterSet("\xef\xbb\xbf[s]\n", L"s", {{L"k", emoji}}), "\xef\xbb\xbf[s]\nk=\xf0\x9f\x98\x80\n");
    EXPECT_EQ(AfterSet("\xef\xbb\xbf[s]\nx=\xc3\xa9\n", L"s", {{L"k", lone}}),
              Utf16(L"[s]\nx=\u00e9\nk=" + lone + L"\n"));
    for (const bool bigEndian : {false, true}) {
        const std::string before = Utf16(L"[a]\nx=\ndd0\n[s]\nK = 1\n", bigEndian);
        EXPECT_EQ(AfterSet(before, L"S", {{L"k", lone}, {L"l", L"\u0a0d"}}),
                  Utf16(L"[a]\nx=\ndd0\n[s]\nK=" + lone + L"\nl=\u0a0d\n", bigEndian));
        CPrivateProfile odd(before + "!");
        odd.SetStrings(L"new", Entries{{L"k", emoji}});
        const std::string added = Utf16(L"[new]\nk=" + emoji + L"\n", bigEndian).substr(2).append("!");
        EXPECT_EQ(odd.Serialise(), before + added);
        EXPECT_EQ(odd.GetString(L"NEW", L"K"), emoji);
        EXPECT_TRUE(odd.RemoveSection(L"new"));
        EXPECT_EQ(odd.Serialise(), before + "!");
    }
    const CPrivateProfile cyrillic(Utf16(L"[\u0446\u0415]\r\n\u043a=\"\u0436\"\r\n"));
    EXPECT_EQ(cyrillic.GetString(L"\u0426\u0435", L"\u041a"), L"\u0436");
}

TEST(PrivateProfile, ManySectionsComeAndGo) {
    constexpr int kCount = 3000;
    CPrivateProfile profile("[x]\nk=v\n;end");
    const auto name = [](int i) { return L"Task" + std::to_wstring(i); };
    for (int i = 0; i < kCount; ++i) {
        profile.SetStrings(name(i), Entries{{L"n", std::to_wstring(i)}});
    }
    CPrivateProfile reread(profile.Serialise());
    for (CPrivateProfile* each : {&profile, &reread}) {
        for (int i = 0; i < kCount; i += 2) {
            EXPECT_TRUE(each->RemoveSection(name(i)));
        }
        for (int i = 0; i < kCount; ++i) {
            EXPECT_EQ(each->GetInt(name(i), L"n", -1), i % 2 == 0 ? -1 : i);
        }
    }
    EXPECT_EQ(profile.Serialise(), reread.Serialise());
}

// Too large for the fuzz target.
TEST(PrivateProfile, HostileTextsAreReadAndKept) {
    std::string headers;
    std::string names;
    for (int i = 0; i < 300000; ++i) {
        headers += "[\n";
        names += {'[', static_cast<char>('!' + i % 60), static_cast<char>('!' + i / 60 % 60), '\n'};
    }
    for (const std::string& text :
         {headers, names, "\xfe\xff" + names + "x", std::string(1 << 20, '\n'), std::string(1 << 20, '['),
          "[s]\nk=" + std::string(1 << 20, 'x'), std::string("\xff\xfe")}) {
        CPrivateProfile profile(text);
        EXPECT_TRUE(profile.Serialise() == text) << text.substr(0, 8);
        profile.SetStrings(L"probe", Entries{{L"k", L"v"}});
        CPrivateProfile again(profile.Serialise());
        EXPECT_EQ(again.GetString(L"PROBE", L"K"), L"v") << text.substr(0, 8);
        EXPECT_TRUE(again.RemoveSection(L"probe"));
        EXPECT_TRUE(again.Serialise().substr(0, text.size() - 1) == text.substr(0, text.size() - 1));
    }
}
