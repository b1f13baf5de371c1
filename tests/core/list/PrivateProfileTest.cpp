#include "core/list/PrivateProfile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Entries = std::vector<CPrivateProfile::Entry>;

std::string Utf16(std::wstring_view text, TextEncoding encoding = TextEncoding::Utf16LE) {
    std::string bytes(ByteOrderMark(encoding));
    EXPECT_TRUE(AppendEncoded(encoding, text, bytes));
    return bytes;
}

// How a text is read, PrivateProfileApiTest compares with the platform; these are where Wine is not like
// Windows, and encodings.
TEST(PrivateProfile, ReadsAsWindowsDoes) {
    const std::pair<std::string, const wchar_t*> cases[] = {
        {"[s\nk=v\n", L"v"},
        {"[s]b]\nk=v\n", L"v"},
        {"k=0\n[t]\nk=1\n", L"none"},
        {" \t[ s ]\n;k=c\n\x1ak=v\x1a\n", L"v"},
        {"[s]\nk=caf\xe9\x80\n", L"caf\u00e9\u20ac"},
        {"\xef\xbb\xbf[s]\nk=\xc3\xa9\xf0\x9f\x98\x80\n", L"\u00e9\xd83d\xde00"},
        {Utf16(L"[S]\r\nK=\"\u0436\"\r\n", TextEncoding::Utf16BE), L"\u0436"}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(CPrivateProfile(text).GetString(L"s", L"k").value_or(L"none"), value) << text;
    }
    const CPrivateProfile numbers("[\xe9 ]\na=' \t-12x'\nb=+0x1fg\nc=0b101\nd=0o178\ne=\n");
    const auto number = [&](const wchar_t* key) { return numbers.GetInt(L"\u00c9", key, 77); };
    EXPECT_EQ((std::vector{number(L"a"), number(L"b"), number(L"c"), number(L"d"), number(L"e")}),
              (std::vector{-12, 31, 5, 15, 77}));
}

TEST(PrivateProfile, SetsKeysInPlaceAndAppendsNewOnes) {
    const std::wstring emoji = L"\xd83d\xde00";
    const std::wstring lone = L"a\xd800z";
    struct Case {
        std::string before;
        Entries entries;
        std::string after;
    };
    for (const Case& c : {
             Case{"", {{L"a", L"1"}, {L"b", L"2"}}, "[s]\r\na=1\r\nb=2\r\n"},
             {"[t]\nx=1", {}, "[t]\nx=1"},
             {"[s]\na=1\n", {{L"a", L"1"}, {L"b", L"2"}}, "[s]\na=1\nb=2\n"},
             {"[s]\na=1\n", {{L"a", emoji}}, Utf16(L"[s]\na=" + emoji + L"\n")},
             {"[t]\nx=1", {{L"a", L"1"}}, "[t]\nx=1\n[s]\na=1\n"},
             {"[s]\ra=1\r", {{L"b", L"2"}}, "[s]\ra=1\rb=2\r"},
             {"[s]\nb=0\n", {{L"a", L"1"}, {L"B", L"2"}}, "[s]\nb=2\na=1\n"},
             {"[s]\r\n a = 1 \r\n\r\n[t]\r\n", {{L"A", L"1"}}, "[s]\r\n a = 1 \r\n\r\n[t]\r\n"},
             {"[s]\n A = 1 \n;c\n\n[t]\n", {{L"a", L"2"}, {L"B", L"3"}}, "[s]\n A=2\n;c\nB=3\n\n[t]\n"},
             {"[s]\na=1\na=2\n[s]\na=3\n", {{L"a", L"4"}}, "[s]\na=4\na=2\n[s]\na=3\n"},
             {"[s]\n", {{L"a", std::wstring(L" \"x\ny\0z' ", 9)}}, "[s]\na= \"x y z' \n"},
             {"[s]\na=1\nb=2\n", {{L"a", L"1\nb=2"}}, "[s]\na=1 b=2\nb=2\n"},
             {"[s]\r\nx=\x80\r\n", {{L"a", L"\u20ac"}}, "[s]\r\nx=\x80\r\na=\x80\r\n"},
             {"[s]\nx=\x80\n", {{L"a", emoji}}, Utf16(L"[s]\nx=\u20ac\na=" + emoji + L"\n")},
             {"", {{L"\u0426", L"v"}}, Utf16(L"[s]\r\n\u0426=v\r\n")},
             {"\xef\xbb\xbf[", {{L"a", emoji}}, "\xef\xbb\xbf[\r\n[s]\r\na=\xf0\x9f\x98\x80\r\n"},
             {"\xef\xbb\xbf[s]\nx=\xc3\xa9\n", {{L"a", lone}}, Utf16(L"[s]\nx=\u00e9\na=" + lone + L"\n")},
         }) {
        CPrivateProfile profile(c.before);
        profile.SetStrings(L"s", c.entries);
        EXPECT_EQ(profile.Serialise(), c.after) << c.before;
    }
    for (const TextEncoding encoding : {TextEncoding::Utf16LE, TextEncoding::Utf16BE}) {
        CPrivateProfile odd(Utf16(L"[a]\nx=\ndd0\n[s]\nK = 1\n", encoding) + "!");
        odd.SetStrings(L"S", Entries{{L"k", lone}, {L"l", L"\u0a0d"}});
        odd.SetStrings(L"new", Entries{{L"k", emoji}});
        EXPECT_EQ(
            odd.Serialise(),
            Utf16(L"[a]\nx=\ndd0\n[s]\nK=" + lone + L"\nl=\u0a0d\n[new]\nk=" + emoji + L"\n", encoding) + "!")
            << "encoding " << static_cast<int>(encoding);
    }
}

TEST(PrivateProfile, RemovesTheFirstSectionOfThatName) {
    CPrivateProfile repeated("[s]\nk=1\n;c\n\nl\n[t]\nx=1\n[u]\n[S]\nk=2\n[s]\nk=3");
    for (const wchar_t* name : {L"t", L"S", L"s"}) {
        EXPECT_TRUE(repeated.RemoveSection(name)) << testing::PrintToString(name);
    }
    EXPECT_FALSE(repeated.RemoveSection(L"t"));
    EXPECT_TRUE(repeated.HasSection(L"s"));
    EXPECT_EQ(repeated.Serialise(), ";c\n\n[u]\n[s]\nk=3");

    CPrivateProfile profile("[a]\nk=1\n\n[b]\nk=2\n;b\n[c]\nk=3\n;c");
    profile.RemoveSection(L"b");
    profile.RemoveSection(L"c");
    profile.SetStrings(L"d", Entries{{L"k", L"4"}});
    profile.SetStrings(L"e", Entries{{L"k", L"0"}});
    profile.SetStrings(L"e", Entries{{L"k", L"5"}});
    EXPECT_EQ(profile.Serialise(), "[a]\nk=1\n\n;b\n;c\n[d]\nk=4\n[e]\nk=5\n");
    profile.RemoveSection(L"d");
    profile.SetStrings(L"a", Entries{{L"l", L"6"}});
    profile.SetStrings(L"b", Entries{{L"k", L"7"}});
    EXPECT_EQ(profile.Serialise(), "[a]\nk=1\n\n;b\n;c\nl=6\n[e]\nk=5\n[b]\nk=7\n");
}

// Too large for the fuzz target.
TEST(PrivateProfile, KeepsManySectionsAndHostileTexts) {
    std::string names;
    for (int i = 0; i < 300000; ++i) {
        names += {'[', static_cast<char>('!' + i % 60), static_cast<char>('!' + i / 60 % 60), '\n'};
    }
    for (const std::string& text : {std::string("x"), std::string(1 << 20, '\n'), std::string(1 << 20, '['),
                                    "\xfe\xff" + names + "x", names, "[s]\nk=" + std::string(1 << 20, 'x')}) {
        CPrivateProfile profile(text);
        const auto name = [](int i) { return L"Task" + std::to_wstring(i); };
        for (int i = 0; i < 3000; ++i) {
            profile.SetStrings(name(i), Entries{{L"n", std::to_wstring(i)}});
            EXPECT_TRUE(i % 2 == 0 || profile.RemoveSection(name(i - 1)));
        }
        const CPrivateProfile again(profile.Serialise());
        EXPECT_TRUE(again.Serialise().substr(0, text.size() - 1) == text.substr(0, text.size() - 1));
        for (int i = 0; i < 3000; ++i) {
            EXPECT_EQ(profile.GetInt(name(i), L"n", -1), i % 2 == 0 ? -1 : i);
            EXPECT_EQ(again.GetInt(name(i), L"n", -1), i % 2 == 0 ? -1 : i);
        }
    }
}

}  // namespace
