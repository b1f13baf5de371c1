#pragma once

#include <atomic>
#include <map>
#include <string>
#include <thread>
#include <vector>

// Answers HTTP requests on the loopback address from a thread of its own while it lives. Windows only.
class HttpServer {
public:
    // The bytes sent for a path, head and body, one part after the other with a pause of 300 milliseconds
    // between them, after which the connection ends.
    using Pages = std::map<std::string, std::vector<std::string>>;

    // Raises std::runtime_error when there is no port.
    explicit HttpServer(Pages pages);
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    ~HttpServer();

    [[nodiscard]] std::wstring Url(const std::wstring& path) const;

    // Head and body of an answer; `status` as in "404 Not Found", `headers` each with CR LF.
    [[nodiscard]] static std::string Answer(const std::string& status, const std::string& headers,
                                            const std::string& body);

private:
    void Serve();
    void AnswerOne(std::uintptr_t connection);

    const Pages m_pages;
    std::uintptr_t m_listener;
    unsigned m_port = 0;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};
