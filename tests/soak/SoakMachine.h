#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "core/FileSystem.h"

// What the soak runs on: a list of its own, in memory natively and a real one on Windows, and this process's
// use of the machine. Natively the zone is Europe/Berlin for as long as it lives; on Windows it must be when
// the program starts.
class ISoakMachine {
public:
    ISoakMachine() = default;
    ISoakMachine(const ISoakMachine&) = delete;
    ISoakMachine& operator=(const ISoakMachine&) = delete;
    virtual ~ISoakMachine() = default;

    [[nodiscard]] virtual IFileSystem& Files() = 0;
    [[nodiscard]] virtual std::wstring ListPath() const = 0;
    // Files where the list is, itself included.
    [[nodiscard]] virtual std::size_t CountFiles() const = 0;
};
[[nodiscard]] std::unique_ptr<ISoakMachine> MakeSoakMachine();

struct Usage {
    std::int64_t bytes;  // allocated
    std::int64_t handles;
    std::int64_t grain;  // bytes that may come and go
};
[[nodiscard]] Usage MeasureUsage();
