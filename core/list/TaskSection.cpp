#include "core/list/TaskSection.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "core/list/PrivateProfile.h"
#include "core/list/ProfileFile.h"
#include "core/list/Storable.h"
#include "core/list/StoredNumbers.h"
#include "core/task/SCVShchedulerTask.h"

namespace {

// The value cut to the size of the reader's buffer; empty when it is missing.
std::wstring_view Cut(const std::optional<std::wstring>& value, std::size_t longest) {
    return value ? std::wstring_view(*value).substr(0, longest) : std::wstring_view();
}

std::int32_t ToNumber(const std::optional<std::wstring>& value, std::int32_t empty) {
    const std::wstring_view text = Cut(value, kLongestNumber);
    return text.empty() ? empty : ParseStoredNumber(text);
}

// Apostrophes are doubled here and not halved when the value is read, so each load and save of a text doubles
// them again. Existing files and the programs that read them rely on it.
void AppendQuoted(std::wstring_view text, std::wstring& value) {
    value += L'\'';
    AppendDoubledApostrophes(text, value);
    value += L'\'';
}

// Sets `value` to what the task writes for the key.
void SetStoredValue(const CSCVShchedulerTask& task, const StoredKey& key, std::wstring& value) {
    value.clear();
    if (key.IsCommandLine()) {
        AppendQuoted(task.BuildCommandLine(), value);
    } else if (key.number != nullptr) {
        AppendNumber(task.*key.number, value);
    } else if (key.time != nullptr) {
        AppendNumber(static_cast<std::uint32_t>(task.*key.time), value);  // see StoredInstant
    } else {
        AppendQuoted(task.*key.text, value);
    }
}

void TakeStoredValue(CSCVShchedulerTask& task, const StoredKey& key,
                     const std::optional<std::wstring>& value) {
    if (key.IsCommandLine()) {
        task.ParseCommandLine(Cut(value, kLongestText));
    } else if (key.number != nullptr) {
        task.*key.number = ToNumber(value, key.missing);
    } else if (key.time != nullptr) {
        task.*key.time = ToNumber(value, key.missing);
    } else {
        task.*key.text = Cut(value, kLongestText);
    }
}

}  // namespace

StoredValues ValuesOf(const CSCVShchedulerTask& task) {
    StoredValues values;
    for (std::size_t i = 0; i < kStoredKeys.size(); ++i) {
        SetStoredValue(task, kStoredKeys[i], values[i]);
    }
    return values;
}

// The low 32 bits are written as an unsigned number and read as a signed one that saturates.
std::int64_t StoredInstant(std::int64_t instant) {
    return std::min<std::int64_t>(static_cast<std::uint32_t>(instant),
                                  std::numeric_limits<std::int32_t>::max());
}

CTaskWriter::CTaskWriter(CPrivateProfile& profile) : m_profile(profile) {
    std::transform(kStoredKeys.begin(), kStoredKeys.end(), m_entries.begin(), [](const StoredKey& key) {
        return ProfileEntry{key.name, {}};
    });
}

void CTaskWriter::Write(const CSCVShchedulerTask& task, std::wstring_view section) {
    for (std::size_t i = 0; i < kStoredKeys.size(); ++i) {
        SetStoredValue(task, kStoredKeys[i], m_entries[i].value);
    }
    m_profile.SetStrings(section, m_entries);
}

void CSCVShchedulerTask::ReadFrom(const CPrivateProfile& profile, const std::wstring& file,
                                  const std::wstring& section) {
    const auto values = profile.GetStrings(section, kStoredKeyNames);
    for (std::size_t i = 0; i < kStoredKeys.size(); ++i) {
        TakeStoredValue(*this, kStoredKeys[i], values[i]);
    }
    m_strIniFile = file;
    m_strIniSection = section;
    m_tStoredRunTime = m_tLastRunTime;
}

int CSCVShchedulerTask::LoadFromIni(IFileSystem& files, const std::wstring& file,
                                    const std::wstring& section) {
    const ProfileRead read = ReadProfile(files, file);
    if (!read.profile) {
        return 0;
    }
    ReadFrom(*read.profile, file, section);
    return 1;
}

FileResult CSCVShchedulerTask::TrySaveToIni(IFileSystem& files, const std::wstring& file,
                                            const std::wstring& section) {
    FileResult result = LockAndEditProfile(
        files, file, [&](CPrivateProfile& profile) { CTaskWriter(profile).Write(*this, section); });
    if (!file.empty()) {
        m_strIniFile = file;
        m_strIniSection = section;
    }
    if (result) {
        m_bIsRunUnsaved = false;
        m_tStoredRunTime = StoredInstant(m_tLastRunTime);
    }
    return result;
}

int CSCVShchedulerTask::SaveToIni(IFileSystem& files, const std::wstring& file, const std::wstring& section) {
    (void)TrySaveToIni(files, file, section);
    return 1;
}
