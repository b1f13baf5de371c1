// What the template Download_URL makes of a server's response, in both hosts and languages.
#include <winsock2.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <tuple>

#include "script/ScriptGenerator.h"
#include "script/ScriptLanguages.h"
#include "script/win32/ActiveScriptController.h"
#include "script/win32/MSScriptController.h"
#include "script/win32/ResourceScriptTexts.h"
#include "tests/support/MessageRecorder.h"
#include "util/win32/ComApartment.h"

namespace {

SOCKET OpenSocket() {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
    return socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
}

// A port on the loopback address that takes connections, and its URL.
struct Listener {
    Listener() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int size = sizeof address;
        auto* const general = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(bind(handle, general, size), 0);
        EXPECT_EQ(listen(handle, 1), 0);
        EXPECT_EQ(getsockname(handle, general, &size), 0);
        url = L"http://127.0.0.1:" + std::to_wstring(ntohs(address.sin_port)) + L"/";
    }

    SOCKET handle = OpenSocket();
    std::wstring url;
};

// Sends one response to the first request, then hangs up.
class CServer {
public:
    CServer(const std::string& head, const std::string& body)
        : m_thread([this, response = "HTTP/1.1 " + head + "\r\nContent-Length: " +
                                     std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body] {
              const SOCKET connection = accept(m_listener.handle, nullptr, nullptr);
              std::string request;
              for (char c = 0;
                   request.find("\r\n\r\n") == std::string::npos && recv(connection, &c, 1, 0) == 1;) {
                  request += c;
              }
              EXPECT_EQ(request.substr(0, 6), "GET / ");
              send(connection, response.data(), static_cast<int>(response.size()), 0);
              closesocket(connection);
              closesocket(m_listener.handle);
          }) {}

    [[nodiscard]] const std::wstring& Url() const { return m_listener.url; }

private:
    Listener m_listener;
    std::jthread m_thread;
};

// Whether the host is the Script Control or Active Scripting, and the language JScript or VBScript.
class Download : public testing::TestWithParam<std::tuple<bool, bool>> {
protected:
    [[nodiscard]] std::wstring Script() const {
        const CScriptGenerator::stTemplate record{.number = m_isJScript ? 62012 : 61331, .params = {}};
        return m_generator.InstantiateTemplate(m_language, &record, L"Main");
    }
    // A script with one text in the place of another that is in it.
    static std::wstring Changed(std::wstring script, const std::wstring& from, const std::wstring& to) {
        EXPECT_NE(script.find(from), std::wstring::npos);
        for (std::size_t at = 0; (at = script.find(from, at)) != std::wstring::npos; at += to.size()) {
            script.replace(at, from.size(), to);
        }
        return script;
    }
    std::wstring Run(const std::wstring& script, const std::wstring& text) {
        std::unique_ptr<IScriptController> controller = std::make_unique<CActiveScriptController>();
        if (std::get<0>(GetParam())) {
            controller = std::make_unique<CMSScriptController>();
        }
        CStringArray arguments;
        arguments.Add(text);
        arguments.Add(L"");
        CStringArray results;
        if (controller->Create(m_language) != 1 || controller->AddCode(script) != 1 ||
            controller->Run(L"Main", &arguments, results) != 1 || results.GetSize() != 1) {
            return L"no result: " + (m_boxes.texts.empty() ? std::wstring() : m_boxes.texts[0]);
        }
        return results[0];
    }

    const bool m_isJScript = std::get<1>(GetParam());
    const std::wstring m_language = m_isJScript ? kJScript : kVBScript;
    CComApartment m_apartment;
    MessageRecorder m_boxes;
    CResourceScriptTexts m_texts;
    CScriptGenerator m_generator{m_texts};
};

INSTANTIATE_TEST_SUITE_P(Hosts, Download, testing::Combine(testing::Bool(), testing::Bool()),
                         [](const auto& each) {
                             return std::string(std::get<0>(each.param) ? "Control" : "Active") +
                                    (std::get<1>(each.param) ? "JScript" : "VBScript");
                         });

using namespace std::string_literals;

const std::string kHtml = "200 OK\r\nContent-Type: text/html";
const struct {
    const char* label;
    std::string head;
    std::string body;
    std::wstring expected;
} kPages[] = {
    {"header", kHtml + "; charset=UTF-8", "<p>\xC3\xA9\xE2\x82\xAC</p>\r\n", L"<p>\u00e9\u20ac</p>\r\n"},
    {"header names ISO-8859-1", kHtml + "; charset=ISO-8859-1", "\x93\xE9\x94", L"\u201c\u00e9\u201d"},
    {"header unknown", kHtml + "; charset=no-such", "<meta charset=windows-1251>\xEF",
     L"<meta charset=windows-1251>\u043f"},
    {"UTF-8 mark", kHtml, "\xEF\xBB\xBF<meta charset=windows-1251>\xC3\xA9",
     L"<meta charset=windows-1251>\u00e9"},
    {"UTF-16 mark", kHtml, "\xFF\xFE<\0&\0<\x26]\0]\0>\0\r\0\n\0\x3D\xD8\0\xDE"s,
     L"<&\u263c]]>\r\n\U0001F600"},
    {"meta", kHtml, "<html><META id='a>b' Charset = 'windows-1251' />\xEF",
     L"<html><META id='a>b' Charset = 'windows-1251' />\u043f"},
    {"meta in a comment", kHtml, "<!--<meta charset=utf-8>--><!--><meta charset=iso-8859-5>\xDF",
     L"<!--<meta charset=utf-8>--><!--><meta charset=iso-8859-5>\u043f"},
    {"meta of another kind", kHtml, "<meta name=a content='b charset=utf-8'><meta charset=windows-1251>\xEF",
     L"<meta name=a content='b charset=utf-8'><meta charset=windows-1251>\u043f"},
    {"meta UTF-8, spoilt", kHtml,
     "<meta charset=utf8>\xD0\xBF\xE9\xD1\x80\xC0\x80\xED\xA0\x80\xF0\x9F\x98\x80",
     L"<meta charset=utf8>\u043f\ufffd\u0440\ufffd\ufffd\ufffd\ufffd\ufffd\U0001F600"},
    {"XML declaration", "200 OK\r\nContent-Type: text/xml",
     "<?xml version='1.0' encoding='windows-1251'?>\xEF",
     L"<?xml version='1.0' encoding='windows-1251'?>\u043f"},
    {"nothing, UTF-8", kHtml, "<p>\xC3\xA9\xF0\x9F\x98\x80</p>", L"<p>\u00e9\U0001F600</p>"},
    {"nothing, not UTF-8", kHtml, "<p>\xE9\x80</p>", L"<p>\u00e9\u20ac</p>"},
    {"markup, controls", kHtml, " <a b=\"&amp;\">]]>&</a>\t\r\r\n\x01\n ",
     L" <a b=\"&amp;\">]]>&</a>\t\r\r\n \n "},
    {"error", "410 Gone\r\nContent-Type: text/html", "<p>Gone</p>", L""},
};

TEST_P(Download, UsesTheFirstCharacterSetNamed) {
    for (const auto& page : kPages) {
        const CServer server(page.head, page.body);
        EXPECT_EQ(Run(Script(), L" \r\n" + server.Url() + L"\r\n"), page.expected) << page.label;
    }
}

// Wine's WaitForResponse fails when the response is there before the call.
TEST_P(Download, AcceptsAResponseBeforeItWaits) {
    const std::wstring pause =
        m_isJScript ? L"function Pause(r) { var t = new Date(); while (new Date() - t < 500); return r; }"
                    : L"\r\nFunction Pause(r)\r\nt = Now\r\nWhile (Now - t) * 86400 < 1.5\r\nWend\r\n"
                      L"Set Pause = r\r\nEnd Function";
    const CServer server(kHtml, "<p>");
    const std::wstring script =
        Changed(Script(), L"request.WaitForResponse", L"Pause(request).WaitForResponse");
    EXPECT_EQ(Run(script + pause, server.Url()), L"<p>");
}

TEST_P(Download, DecodesLongPagesInPieces) {
    std::string body;
    std::wstring expected;
    for (int i = 0; i < 1300; ++i) {
        body += "\xD0\xBF\xC3\xA9 plain text & \xE2\x82\xAC\r\n";
        expected += L"\u043f\u00e9 plain text & \u20ac\r\n";
    }
    const CServer server("200 OK", body);
    EXPECT_TRUE(Run(Script(), server.Url()) == expected);
}

TEST_P(Download, WorksWithoutTheParser) {
    const CServer server("200 OK\r\nContent-Type: text/html; charset=utf-8", "<p>\xC3\xA9</p>");
    EXPECT_EQ(Run(Changed(Script(), L"MSXML2.DOMDocument", L"No.Such"), server.Url()), L"<p>\u00e9</p>");
}

TEST_P(Download, ReturnsNothingWithoutAResponse) {
    EXPECT_EQ(Run(Script(), L"http://127.0.0.1:1/"), L"");
    EXPECT_EQ(Run(Script(), L"no URL"), L"");
    // With a shorter limit than a minute. The port stays open, for Wine's WinHttp writes what it hears after
    // that into memory which is no longer its own.
    const Listener silent;
    const std::wstring script = Changed(Script(), L"WaitForResponse(60)", L"WaitForResponse(1)");
    EXPECT_EQ(Run(m_isJScript ? Changed(script, L"> 50000", L"> 900") : Changed(script, L"< 50", L"< 0"),
                  silent.url),
              L"");
}

}  // namespace
