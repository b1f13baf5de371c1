#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/list/SectionEdit.h"
#include "core/list/StoredKeys.h"

class CPrivateProfile;
class CSCVShchedulerTask;

// The section of one task in the list file.

// Values longer than this many UTF-16 units are cut when they are read: texts, and numbers.
inline constexpr std::size_t kLongestText = 1023;
inline constexpr std::size_t kLongestNumber = 254;

// The names of kStoredKeys, in their order.
inline constexpr auto kStoredKeyNames = [] {
    std::array<std::wstring_view, kStoredKeys.size()> names{};
    std::transform(kStoredKeys.begin(), kStoredKeys.end(), names.begin(),
                   [](const StoredKey& key) { return key.name; });
    return names;
}();

// One value for each of kStoredKeys.
using StoredValues = std::array<std::wstring, kStoredKeys.size()>;

// The values that the task writes, as the file holds them.
[[nodiscard]] StoredValues ValuesOf(const CSCVShchedulerTask& task);

// The instant that is read back after `instant` was written. For instance, 2038-01-19 03:14:07 UTC for a
// later instant up to 2106.
[[nodiscard]] std::int64_t StoredInstant(std::int64_t instant);

// Writes tasks to their sections. One writer serves many tasks and reuses its memory from one to the next.
class CTaskWriter {
public:
    // The profile must outlive the writer.
    explicit CTaskWriter(CPrivateProfile& profile);

    void Write(const CSCVShchedulerTask& task, std::wstring_view section);

private:
    CPrivateProfile& m_profile;
    std::array<ProfileEntry, kStoredKeys.size()> m_entries;
};
