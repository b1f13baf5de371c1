#include "core/list/PrivateProfile.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using Entries = std::vector<CPrivateProfile::Entry>;

const std::wstring kEmoji = L"\xd83d\xde00";
const std::wstring kLone = L"a\xd800z";

std::string Utf16(std::wstring_view text, TextEncoding encoding = TextEncoding::Utf16LE) {
    std::string bytes(ByteOrderMark(encoding));
    EXPECT_TRUE(AppendEncoded(encoding, text, bytes));
    return bytes;
}

// How a text is read, PrivateProfileApiTest compares with the platform; these are where Wine is not like
// Windows, and encodings.
TEST(PrivateProfile, ReadsAsWindowsDoes) {
    const std::tuple<const char*, std::string, const wchar_t*> cases[] = {
        {"header without a bracket", "[s\nk=v\n", L"v"},
        {"header with two brackets", "[s]b]\nk=v\n", L"v"},
        {"keys outside the section", "k=0\n[t]\nk=1\n", L"none"},
        {"blanks, comment, 0x1A", " \t[ s ]\n;k=c\n\x1ak=v\x1a\n", L"v"},
        {"Windows-1252", "[s]\nk=caf\xe9\x80\n", L"caf\u00e9\u20ac"},
        {"UTF-8", "\xef\xbb\xbf[s]\nk=\xc3\xa9\xf0\x9f\x98\x80\n", L"\u00e9\xd83d\xde00"},
        {"UTF-16BE", Utf16(L"[S]\r\nK=\"\u0436\"\r\n", TextEncoding::Utf16BE), L"\u0436"}};
    for (const auto& [label, text, value] : cases) {
        EXPECT_EQ(CPrivateProfile(text).GetString(L"s", L"k").value_or(L"none"), value) << label;
    }
    const CPrivateProfile numbers("[\xe9 ]\na=' \t-12x'\nb=+0x1fg\nc=0b101\nd=0o178\ne=\n");
    const auto number = [&](const wchar_t* key) { return numbers.GetInt(L"\u00c9", key, 77); };
    EXPECT_EQ((std::vector{number(L"a"), number(L"b"), number(L"c"), number(L"d"), number(L"e")}),
              (std::vector{-12, 31, 5, 15, 77}));
}

TEST(PrivateProfile, SetsKeysInPlaceAndAppendsNewOnes) {
    const struct {
        const char* label;
        std::string before;
        Entries entries;
        std::string after;
    } cases[] = {
        {"empty file", "", {{L"a", L"1"}, {L"b", L"2"}}, "[s]\r\na=1\r\nb=2\r\n"},
        {"nothing to set", "[t]\nx=1", {}, "[t]\nx=1"},
        {"new key", "[s]\na=1\n", {{L"a", L"1"}, {L"b", L"2"}}, "[s]\na=1\nb=2\n"},
        {"to UTF-16", "[s]\na=1\n", {{L"a", kEmoji}}, Utf16(L"[s]\na=" + kEmoji + L"\n")},
        {"new section", "[t]\nx=1", {{L"a", L"1"}}, "[t]\nx=1\n[s]\na=1\n"},
        {"CR alone", "[s]\ra=1\r", {{L"b", L"2"}}, "[s]\ra=1\rb=2\r"},
        {"case of a key", "[s]\nb=0\n", {{L"a", L"1"}, {L"B", L"2"}}, "[s]\nb=2\na=1\n"},
        {"equal value", "[s]\r\n a = 1 \r\n\r\n[t]\r\n", {{L"A", L"1"}}, "[s]\r\n a = 1 \r\n\r\n[t]\r\n"},
        {"blank line at the end",
         "[s]\n A = 1 \n;c\n\n[t]\n",
         {{L"a", L"2"}, {L"B", L"3"}},
         "[s]\n A=2\n;c\nB=3\n\n[t]\n"},
        {"doubled key", "[s]\na=1\na=2\n[s]\na=3\n", {{L"a", L"4"}}, "[s]\na=4\na=2\n[s]\na=3\n"},
        {"control characters", "[s]\n", {{L"a", std::wstring(L" \"x\ny\0z' ", 9)}}, "[s]\na= \"x y z' \n"},
        {"line break", "[s]\na=1\nb=2\n", {{L"a", L"1\nb=2"}}, "[s]\na=1 b=2\nb=2\n"},
        {"Windows-1252", "[s]\r\nx=\x80\r\n", {{L"a", L"\u20ac"}}, "[s]\r\nx=\x80\r\na=\x80\r\n"},
        {"1252 to UTF-16", "[s]\nx=\x80\n", {{L"a", kEmoji}}, Utf16(L"[s]\nx=\u20ac\na=" + kEmoji + L"\n")},
        {"UTF-16 for a key", "", {{L"\u0426", L"v"}}, Utf16(L"[s]\r\n\u0426=v\r\n")},
        {"UTF-8", "\xef\xbb\xbf[", {{L"a", kEmoji}}, "\xef\xbb\xbf[\r\n[s]\r\na=\xf0\x9f\x98\x80\r\n"},
        {"UTF-8 to UTF-16",
         "\xef\xbb\xbf[s]\nx=\xc3\xa9\n",
         {{L"a", kLone}},
         Utf16(L"[s]\nx=\u00e9\na=" + kLone + L"\n")},
    };
    for (const auto& c : cases) {
        CPrivateProfile profile(c.before);
        profile.SetStrings(L"s", c.entries);
        EXPECT_EQ(profile.Serialise(), c.after) << c.label;
    }
}

TEST(PrivateProfile, KeepsUtf16AsItIs) {
    for (const TextEncoding encoding : {TextEncoding::Utf16LE, TextEncoding::Utf16BE}) {
        CPrivateProfile odd(Utf16(L"[a]\nx=\ndd0\n[s]\nK = 1\n", encoding) + "!");
        odd.SetStrings(L"S", Entries{{L"k", kLone}, {L"l", L"\u0a0d"}});
        odd.SetStrings(L"new", Entries{{L"k", kEmoji}});
        EXPECT_EQ(
            odd.Serialise(),
            Utf16(L"[a]\nx=\ndd0\n[s]\nK=" + kLone + L"\nl=\u0a0d\n[new]\nk=" + kEmoji + L"\n", encoding) +
                "!")
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
