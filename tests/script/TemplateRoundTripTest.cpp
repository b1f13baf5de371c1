#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include "script/MSScriptController.h"
#include "script/ScriptGenerator.h"
#include "script/ScriptLanguages.h"
#include "script/ScriptTexts.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/ScriptLibrary.h"
#include "util/ComApartment.h"

namespace {

// The library with other helpers: each returns its text and, one after the other, what it received.
class CEchoes : public IScriptTexts {
public:
    [[nodiscard]] std::wstring GetTemplate(std::int32_t number) const override {
        const CScriptGenerator library(ScriptLibrary());
        std::wstring text = ScriptLibrary().GetTemplate(number);
        const std::wstring signature = library.GetTemplateSignature(number);
        const bool isVBScript = number < 62000;
        const std::wstring opening = (isVBScript ? L"\r\nFunction " : L"\r\nfunction ") + signature;
        if (signature.empty()) {
            return text;
        }
        text.erase(text.find(opening));
        std::wstring echo = L"text";
        for (const std::wstring& name : library.GetTemplateParamNames(number, 1)) {
            echo += (isVBScript ? L" & \"<\" & " : L" + \"<\" + ") + name;
        }
        const std::wstring name = library.GetTemplateFunctionName(number);
        return text + opening +
               (isVBScript ? L"\r\n\t" + name + L" = " + echo + L"\r\nEnd Function\r\n"
                           : L" {\r\n\treturn " + echo + L";\r\n}\r\n");
    }
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view) const override { return {}; }
};

std::wstring RunMain(const std::wstring& language, const std::wstring& script, const std::wstring& text) {
    MessageRecorder messages;
    CMSScriptController controller;
    CStringArray results;
    CStringArray arguments;
    arguments.Add(text);
    arguments.Add(L"url");
    if (controller.Create(language) == 1 && controller.AddCode(script) == 1 &&
        controller.Run(L"Main", &arguments, results) == 1 && results.GetSize() == 1 &&
        messages.texts.empty()) {
        return results[0];
    }
    return L"no result: " + (messages.texts.empty() ? std::wstring(L"no message") : messages.texts[0]);
}

// A value as the user types it and what the helper is to receive.
using Value = std::pair<std::wstring, std::wstring>;

class CValues {
public:
    explicit CValues(unsigned seed) : m_random(seed) {}

    Value Next(const std::wstring& language) {
        if (language == kJScript) {
            const std::wstring value = Pieces(L"");
            return {value, value};
        }
        switch (Below(3)) {
            case 0: {
                // Its line breaks become those of the system. Quotes in it would have to be doubled by the
                // user.
                std::wstring written;
                std::wstring meant;
                for (std::size_t count = Below(4) + 1; count > 0; --count) {
                    const std::wstring line = Pieces(L"\"\r\n");
                    // A line feed at the start would make one break of two.
                    const std::size_t lineBreak = line.empty() ? 0 : Below(3);
                    written += line + (lineBreak == 0 ? L"\r\n" : lineBreak == 1 ? L"\r" : L"\n");
                    meant += line + L"\r\n";
                }
                return {written, meant};
            }
            case 1: {
                Value expression{L"vbTab", L"\t"};
                for (std::size_t count = Below(4); count > 0; --count) {
                    std::wstring literal = Pieces(L"\r\n");
                    expression.second += literal + L"\r\n";
                    for (std::size_t at = 0; (at = literal.find(L'"', at)) != std::wstring::npos; at += 2) {
                        literal.insert(at, 1, L'"');
                    }
                    expression.first += L" + \"" + literal + L"\" & vbNewLine";
                }
                return expression;
            }
            default: {
                const std::wstring value = Pieces(L"\r\nv");
                return {value, value};
            }
        }
    }
    std::size_t Below(std::size_t limit) { return m_random() % limit; }

private:
    // Up to eight, none with a character of `without`.
    std::wstring Pieces(std::wstring_view without) {
        static const std::wstring kPieces[] = {
            L"a",  L"Z",  L" ",     L"\"",        L"\\",        L"'",   L"\r\n",   L"\r",
            L"\n", L"\t", L"vbTab", L"vbNewLine", L"<b x='y'>", L"\\n", L"\u00e9", L"\u65e5",
            L"//", L"/*", L"%1%",   L"{{",        L"\\\"",      L" & "};
        std::wstring value;
        for (std::size_t count = Below(9); count > 0; --count) {
            const std::wstring& piece = kPieces[Below(std::size(kPieces))];
            // The word twice in a row is torn apart between line breaks.
            if (piece.find_first_of(without) == std::wstring::npos &&
                !(piece == L"vbNewLine" && value.ends_with(piece))) {
                value += piece;
            }
        }
        return value;
    }

    std::mt19937 m_random;
};

struct RoundTrip : testing::TestWithParam<const wchar_t*> {
    // A record with values for as many parameters as the template has, and what its echo adds to the text.
    CScriptGenerator::stTemplate Record(std::int32_t number, std::wstring& echo) {
        CScriptGenerator::stTemplate record{.number = number, .params = {}};
        for (std::ptrdiff_t left = generator.GetTemplateParamNames(number, 1).GetSize(); left > 0; --left) {
            const auto [written, meant] = values.Next(language);
            record.params.Add(written);
            echo += L'<' + meant;
        }
        return record;
    }

    const std::wstring language = GetParam();
    const CComApartment apartment{};
    const CEchoes echoes{};
    const CScriptGenerator generator{echoes};
    CValues values{20240229};
};

TEST_P(RoundTrip, EveryTemplatesHelperReceivesWhatWasMeant) {
    const auto [first, last] = CScriptGenerator::GetTemplateNumbers(language);
    ASSERT_LT(first, last);
    for (std::int32_t number = first; number <= last; ++number) {
        const int rounds = generator.GetTemplateParamNames(number, 1).IsEmpty() ? 1 : 15;
        for (int round = 0; round < rounds; ++round) {
            std::wstring echo = L"text";
            const auto record = Record(number, echo);
            const std::wstring script = generator.InstantiateTemplate(language, &record, L"Main");
            ASSERT_EQ(RunMain(language, script, L"text"), echo) << number << testing::PrintToString(script);
        }
    }
}

// Main and the five functions run in the order in which they were added, each on what the one before
// returned.
TEST_P(RoundTrip, FiveAddedToAScriptRunInTurn) {
    const auto [first, last] = CScriptGenerator::GetTemplateNumbers(language);
    for (int round = 0; round < 10; ++round) {
        const CScriptGenerator::stTemplate main{.number = first, .params = {}};
        std::wstring script = generator.InstantiateTemplate(language, &main, L"Main");
        std::wstring echo = L"text";
        std::vector<CScriptGenerator::stTemplate> records{main};
        for (int added = 0; added < 5; ++added) {
            const auto offset = values.Below(static_cast<std::size_t>(last - first));
            records.push_back(Record(first + 1 + static_cast<std::int32_t>(offset), echo));
            script = generator.AddToScript(language, script, &records.back());
        }
        ASSERT_EQ(RunMain(language, script, L"text"), echo) << testing::PrintToString(script);
        ASSERT_EQ(RunMain(language, generator.GenerateScript(language, records), L"text"), echo);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, RoundTrip, testing::Values(kVBScript, kJScript),
                         [](const auto& each) { return testing::PrintToString(each.index); });

}  // namespace
