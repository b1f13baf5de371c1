#include <malloc.h>

#include "tests/soak/SoakMachine.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/LocalZone.h"

#ifdef __SANITIZE_ADDRESS__
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's, of which gcc has no header
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

class CSoakMachine final : public ISoakMachine {
public:
    [[nodiscard]] IFileSystem& Files() override { return m_files; }
    [[nodiscard]] std::wstring ListPath() const override { return L"C:\\list.ini"; }
    [[nodiscard]] std::size_t CountFiles() const override { return m_files.FileCount(); }

private:
    CLocalZone m_zone{"Europe/Berlin"};
    CFakeFileSystem m_files;
};

}  // namespace

std::unique_ptr<ISoakMachine> MakeSoakMachine() {
    return std::make_unique<CSoakMachine>();
}

Usage MeasureUsage() {
#ifdef __SANITIZE_ADDRESS__
    const std::size_t bytes = __sanitizer_get_current_allocated_bytes();
#else
    const std::size_t bytes = mallinfo2().uordblks;
#endif
    return {static_cast<std::int64_t>(bytes), 0, 1 << 14};
}
