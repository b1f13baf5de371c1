#include "bench/ProfileFiles.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include <fcntl.h>
#include <unistd.h>

namespace {

const std::filesystem::path kFolder = "PrivateProfileBench.scratch";

}  // namespace

const std::string& TaskFile(int tasks) {
    static std::map<int, std::string> paths;
    std::string& path = paths[tasks];
    if (path.empty()) {
        std::string text = "[SCVShchedulerTaskList]\r\nTaskCount=" + std::to_string(tasks) + "\r\n";
        for (int i = 1; i <= tasks; ++i) {
            const std::string number = std::to_string(i);
            text += "[SCVShchedulerTask" + number + "]\r\n";
            for (const std::string key : kKeys) {
                const std::string value =
                    key == "CommandLine" ? "'\"C:\\Projects\\Shop watch\\Project " + number +
                                               ".scvpr\" -dt -s -e \"C:\\Exports\\list.csv\"'"
                    : key == "LastRunResult" ? std::string("'Success'")
                    : key.ends_with("Time")  ? "17118" + std::to_string(10000 + i % 90000)
                                             : std::string("1");
                text.append(key).append("=").append(value).append("\r\n");
            }
        }
        std::filesystem::create_directories(kFolder);
        path = kFolder / (std::to_string(tasks) + ".ini");
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        if (file == nullptr || std::fwrite(text.data(), 1, text.size(), file) != text.size() ||
            std::fclose(file) != 0) {
            std::perror(path.c_str());
            std::exit(1);
        }
    }
    return path;
}

std::string ReadFile(const std::string& path) {
    std::string bytes(std::filesystem::file_size(path), '\0');
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr || std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
        std::perror(path.c_str());
        std::exit(1);
    }
    std::fclose(file);
    return bytes;
}

void ReplaceFile(const std::string& path, const std::string& bytes) {
    const std::string temporary = path + ".new";
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool written = file >= 0 &&
                         write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
                         fsync(file) == 0 && close(file) == 0;
    if (!written || std::rename(temporary.c_str(), path.c_str()) != 0) {
        std::perror(path.c_str());
        std::exit(1);
    }
}

void RemoveTaskFiles() {
    std::filesystem::remove_all(kFolder);
}
