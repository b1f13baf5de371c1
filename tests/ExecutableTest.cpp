#include <gmock/gmock.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

// Reads the headers of every program that is shipped or tested with.

namespace {

// A program of this build's own word size, as it lies in the file.
class Image {
public:
    explicit Image(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
        const auto dos = Read<IMAGE_DOS_HEADER>(0);
        const auto at = static_cast<std::size_t>(dos.e_lfanew);
        m_headers = Read<IMAGE_NT_HEADERS>(at);
        const std::size_t sections =
            at + offsetof(IMAGE_NT_HEADERS, OptionalHeader) + m_headers.FileHeader.SizeOfOptionalHeader;
        for (std::size_t i = 0; i < m_headers.FileHeader.NumberOfSections; ++i) {
            m_sections.push_back(Read<IMAGE_SECTION_HEADER>(sections + i * sizeof(IMAGE_SECTION_HEADER)));
        }
    }

    [[nodiscard]] const IMAGE_NT_HEADERS& Headers() const { return m_headers; }
    [[nodiscard]] IMAGE_DATA_DIRECTORY Directory(unsigned index) const {
        return m_headers.OptionalHeader.DataDirectory[index];
    }

    // The names of the imported libraries in lower case.
    [[nodiscard]] std::set<std::string> Imports() const {
        std::set<std::string> names;
        for (std::size_t at = Offset(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);;
             at += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
            const auto descriptor = Read<IMAGE_IMPORT_DESCRIPTOR>(at);
            if (descriptor.Name == 0) {
                return names;
            }
            std::string name = &m_bytes.at(Offset(descriptor.Name));
            std::ranges::transform(name, name.begin(), [](char c) {
                return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
            });
            names.insert(name);
        }
    }

    // Whether the resources hold a manifest for the program itself.
    [[nodiscard]] bool HasManifest() const {
        const IMAGE_DATA_DIRECTORY resources = Directory(IMAGE_DIRECTORY_ENTRY_RESOURCE);
        if (resources.Size == 0) {
            return false;
        }
        const std::size_t root = Offset(resources.VirtualAddress);
        const auto types = Entries(root);
        const auto manifest = std::ranges::find(types, 24U, &Entry::id);  // RT_MANIFEST
        if (manifest == types.end()) {
            return false;
        }
        return std::ranges::count(Entries(root + manifest->offset), 1U, &Entry::id) == 1;
    }

private:
    struct Entry {
        DWORD id;
        DWORD offset;  // of the directory below, from the root
    };

    template <class T>
    [[nodiscard]] T Read(std::size_t at) const {
        T value{};
        if (at > m_bytes.size() || m_bytes.size() - at < sizeof value) {
            ADD_FAILURE() << "the file ends too early";
            return value;
        }
        std::memcpy(&value, m_bytes.data() + at, sizeof value);
        return value;
    }
    [[nodiscard]] std::size_t Offset(DWORD address) const {
        for (const IMAGE_SECTION_HEADER& section : m_sections) {
            if (address >= section.VirtualAddress &&
                address - section.VirtualAddress < section.SizeOfRawData) {
                return address - section.VirtualAddress + section.PointerToRawData;
            }
        }
        return m_bytes.size();
    }
    [[nodiscard]] std::vector<Entry> Entries(std::size_t directory) const {
        const auto header = Read<IMAGE_RESOURCE_DIRECTORY>(directory);
        std::vector<Entry> entries;
        for (unsigned i = 0;
             i < static_cast<unsigned>(header.NumberOfNamedEntries) + header.NumberOfIdEntries; ++i) {
            const std::size_t at = directory + sizeof header + i * sizeof(IMAGE_RESOURCE_DIRECTORY_ENTRY);
            entries.push_back({Read<DWORD>(at), Read<DWORD>(at + sizeof(DWORD)) & 0x7FFFFFFF});
        }
        return entries;
    }

    std::vector<char> m_bytes;
    IMAGE_NT_HEADERS m_headers{};
    std::vector<IMAGE_SECTION_HEADER> m_sections;
};

// The version that Windows shows of a file.
std::wstring ShownVersion(const std::filesystem::path& path) {
    std::vector<char> block(GetFileVersionInfoSizeW(path.c_str(), nullptr));
    void* text = nullptr;
    UINT length = 0;
    if (block.empty() ||
        !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) ||
        !VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\ProductVersion", &text, &length)) {
        return {};
    }
    return static_cast<const wchar_t*>(text);
}

class Executable : public testing::TestWithParam<const wchar_t*> {};

TEST_P(Executable, IsHardenedAndNeedsNothingButWindows) {
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const std::filesystem::path path = std::filesystem::path(self).parent_path() / GetParam();
    ASSERT_TRUE(std::filesystem::exists(path)) << path;
    const Image image(path);
    const IMAGE_OPTIONAL_HEADER& header = image.Headers().OptionalHeader;
    const WORD file = image.Headers().FileHeader.Characteristics;

    ASSERT_EQ(image.Headers().Signature, static_cast<DWORD>(IMAGE_NT_SIGNATURE));
    ASSERT_EQ(header.Magic, IMAGE_NT_OPTIONAL_HDR_MAGIC);
    constexpr WORD kMovable = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE;
    constexpr WORD kNoExecute = IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_TRUE(header.DllCharacteristics & kMovable);
    EXPECT_TRUE(header.DllCharacteristics & kNoExecute);
    EXPECT_FALSE(file & IMAGE_FILE_RELOCS_STRIPPED);
    EXPECT_GT(image.Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0U) << "without them it cannot be moved";
    EXPECT_TRUE(file & IMAGE_FILE_LARGE_ADDRESS_AWARE);
#ifdef _WIN64
    EXPECT_TRUE(header.DllCharacteristics & 0x0020) << "addresses beyond 4 GB";
#endif
    EXPECT_EQ(header.MajorSubsystemVersion, 6);
    EXPECT_EQ(image.Headers().FileHeader.TimeDateStamp, 0U) << "the same bytes for the same sources";
    EXPECT_TRUE(image.HasManifest());
    EXPECT_EQ(ShownVersion(path), SCV_VERSION);

    const std::set<std::string> imports = image.Imports();
    EXPECT_TRUE(imports.contains("kernel32.dll"));
    EXPECT_THAT(imports,
                testing::Each(testing::AnyOf("advapi32.dll", "bcrypt.dll", "comctl32.dll", "comdlg32.dll",
                                             "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
                                             "oleaut32.dll", "rpcrt4.dll", "shell32.dll", "shlwapi.dll",
                                             "user32.dll", "uxtheme.dll", "version.dll", "ws2_32.dll")));
}

// Relative to the test program.
INSTANTIATE_TEST_SUITE_P(All, Executable, testing::Values(SCV_EXECUTABLES));

}  // namespace
