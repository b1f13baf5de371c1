#include "tests/support/HttpServer.h"

#include <winsock2.h>

#include <ws2tcpip.h>

#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace {

// Whether the socket has something to be read, or a connection to accept, within a tenth of a second.
bool IsReady(SOCKET socket) {
    fd_set sockets;
    FD_ZERO(&sockets);
    FD_SET(socket, &sockets);
    timeval wait{0, 100000};
    return select(0, &sockets, nullptr, nullptr, &wait) == 1;
}

}  // namespace

HttpServer::HttpServer(Pages pages) : m_pages(std::move(pages)) {
    WSADATA data;
    if (WSAStartup(MAKEWORD(2, 2), &data) != 0) {
        throw std::runtime_error("no Windows Sockets");
    }
    m_listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_listener, general, size) != 0 || listen(m_listener, SOMAXCONN) != 0 ||
        getsockname(m_listener, general, &size) != 0) {
        throw std::runtime_error("no port on the loopback address");
    }
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { Serve(); });
}

HttpServer::~HttpServer() {
    m_ends = true;
    m_thread.join();
    closesocket(m_listener);
    WSACleanup();
}

std::wstring HttpServer::Url(const std::wstring& path) const {
    return L"http://127.0.0.1:" + std::to_wstring(m_port) + path;
}

std::string HttpServer::Answer(const std::string& status, const std::string& headers,
                               const std::string& body) {
    return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

void HttpServer::Serve() {
    while (!m_ends) {
        if (IsReady(m_listener)) {
            const SOCKET connection = accept(m_listener, nullptr, nullptr);
            if (connection != INVALID_SOCKET) {
                AnswerOne(connection);
            }
        }
    }
}

void HttpServer::AnswerOne(std::uintptr_t connection) {
    std::string request;
    char buffer[1024];
    while (request.find("\r\n\r\n") == std::string::npos && !m_ends) {
        if (IsReady(connection)) {
            const int count = recv(connection, buffer, sizeof buffer, 0);
            if (count <= 0) {
                break;
            }
            request.append(buffer, static_cast<std::size_t>(count));
        }
    }
    const std::size_t begin = request.find(' ') + 1;
    const auto page = m_pages.find(request.substr(begin, request.find(' ', begin) - begin));
    const std::vector<std::string> parts =
        page == m_pages.end() ? std::vector{Answer("404 Not Found", "", "No such page")} : page->second;
    for (std::size_t index = 0; index < parts.size() && !m_ends; ++index) {
        if (index > 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
        }
        send(connection, parts[index].data(), static_cast<int>(parts[index].size()), 0);
    }
    shutdown(connection, SD_SEND);
    closesocket(connection);
}
