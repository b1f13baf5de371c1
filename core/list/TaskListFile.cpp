#include "core/list/TaskListFile.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "core/list/ProfileFile.h"
#include "core/list/Storable.h"
#include "core/list/StoredKeys.h"
#include "core/list/StoredNumbers.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

namespace {

using Status = IFileSystem::Status;

constexpr std::wstring_view kSectionPrefix = L"SCVShchedulerTask";

using StoredValues = std::array<std::wstring, kStoredKeys.size()>;

constexpr auto kKeyNames = [] {
    std::array<std::wstring_view, kStoredKeys.size()> names{};
    std::transform(kStoredKeys.begin(), kStoredKeys.end(), names.begin(),
                   [](const StoredKey& key) { return key.name; });
    return names;
}();

// What a buffer of that size receives of a value; empty when it is missing.
std::wstring_view Cut(const std::optional<std::wstring>& value, std::size_t longest) {
    return value ? std::wstring_view(*value).substr(0, longest) : std::wstring_view();
}

std::int32_t ToNumber(const std::optional<std::wstring>& value, std::int32_t empty) {
    const std::wstring_view text = Cut(value, kLongestNumber);
    return text.empty() ? empty : ParseStoredNumber(text);
}

// Quotes are doubled here and not halved when read: a text gains apostrophes with every load and save.
// Existing files and the programs that read them count on it.
std::wstring Quote(std::wstring_view text) {
    return L'\'' + DoubledApostrophes(text) + L'\'';
}

// The low 32 bits, unsigned; read back as signed, so that instants from 2038-01-19 03:14:08 UTC on become
// that limit.
std::wstring FormatTime(std::int64_t instant) {
    return FormatNumber(static_cast<std::uint32_t>(instant));
}

// What the task writes for a key, as it stands in the file.
std::wstring StoredValue(const CSCVShchedulerTask& task, const StoredKey& key) {
    if (key.IsCommandLine()) {
        return Quote(task.BuildCommandLine());
    }
    return key.number != nullptr ? FormatNumber(task.*key.number)
           : key.time != nullptr ? FormatTime(task.*key.time)
                                 : Quote(task.*key.text);
}

StoredValues ValuesOf(const CSCVShchedulerTask& task) {
    StoredValues values;
    std::transform(kStoredKeys.begin(), kStoredKeys.end(), values.begin(),
                   [&](const StoredKey& key) { return StoredValue(task, key); });
    return values;
}

void Take(CSCVShchedulerTask& task, const StoredKey& key, const std::optional<std::wstring>& value) {
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

// The number of a task section's name as TaskSectionName writes it; 0 for any other name.
std::int32_t SectionNumber(std::wstring_view name) {
    if (!EqualNoCase(name.substr(0, kSectionPrefix.size()), kSectionPrefix)) {
        return 0;
    }
    const std::wstring_view digits = name.substr(kSectionPrefix.size());
    const std::int32_t number = ParseStoredNumber(digits);
    return digits == FormatNumber(number) ? number : 0;
}

// Returns the count that stood there before.
std::int32_t SetCount(CPrivateProfile& profile, std::int32_t count) {
    const std::int32_t oldCount = profile.GetInt(kTaskListSection, kTaskCountKey, 0);
    const CPrivateProfile::Entry newCount{kTaskCountKey, FormatNumber(count)};
    profile.SetStrings(kTaskListSection, {&newCount, 1});
    return oldCount;
}

void RemoveTaskSections(CPrivateProfile& profile, std::int32_t first, std::int32_t last) {
    for (const std::int32_t number : FindTaskSections(profile, first, last)) {
        profile.RemoveSection(TaskSectionName(number));
    }
}

// What stands in a section, and what its task as loaded would write there.
struct StoredTask {
    std::vector<std::optional<std::wstring>> stands;
    StoredValues writes;

    // To write elsewhere what reads as it does here, whose apostrophes are not to be doubled again.
    [[nodiscard]] std::wstring Moved(std::size_t key) const {
        if (!stands[key]) {
            return writes[key];
        }
        return writes[key].starts_with(L'\'') ? L'\'' + *stands[key] + L'\'' : *stands[key];
    }
};

}  // namespace

std::wstring TaskSectionName(std::int32_t number) {
    return std::wstring(kSectionPrefix) + FormatNumber(number);
}

std::vector<std::int32_t> FindTaskSections(const CPrivateProfile& profile, std::int32_t first,
                                           std::int32_t last) {
    std::vector<std::int32_t> numbers;
    profile.ForEachSection([&](std::wstring_view name) {
        if (const std::int32_t number = SectionNumber(name); number >= first && number <= last) {
            numbers.push_back(number);
        }
    });
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

std::int64_t StoredInstant(std::int64_t instant) {
    return ParseStoredNumber(FormatTime(instant));
}

void CSCVShchedulerTask::ReadFrom(const CPrivateProfile& profile, const std::wstring& file,
                                  const std::wstring& section) {
    const auto values = profile.GetStrings(section, kKeyNames);
    for (std::size_t i = 0; i < kStoredKeys.size(); ++i) {
        Take(*this, kStoredKeys[i], values[i]);
    }
    m_strIniFile = file;
    m_strIniSection = section;
    m_tStoredRunTime = m_tLastRunTime;
}

void CSCVShchedulerTask::WriteTo(CPrivateProfile& profile, const std::wstring& section) const {
    std::array<CPrivateProfile::Entry, kStoredKeys.size()> entries;
    for (std::size_t i = 0; i < kStoredKeys.size(); ++i) {
        entries[i] = {kStoredKeys[i].name, StoredValue(*this, kStoredKeys[i])};
    }
    profile.SetStrings(section, entries);
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

int CSCVShchedulerTask::SaveToIni(IFileSystem& files, const std::wstring& file, const std::wstring& section) {
    (void)TrySaveToIni(files, file, section);
    return 1;
}

FileResult CSCVShchedulerTask::TrySaveToIni(IFileSystem& files, const std::wstring& file,
                                            const std::wstring& section) {
    FileResult result =
        LockAndEditProfile(files, file, [&](CPrivateProfile& profile) { WriteTo(profile, section); });
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

int CSCVShchedulerTaskArray::Load(IFileSystem& files, const std::wstring& file) {
    return TryLoad(files, file) ? 1 : 0;
}

FileResult CSCVShchedulerTaskArray::TryLoad(IFileSystem& files, const std::wstring& file) {
    const auto stamp = files.Stamp(file);
    ProfileRead read = ReadProfile(files, file);
    if (!read.profile && read.result != Status::Missing) {
        m_unread = read.result;
    } else if (EqualNoCase(m_unread.path, file)) {
        m_unread = {};
    }
    if (read.profile) {
        ReadFrom(*read.profile, file);
        m_stamp = stamp;
    }
    return std::move(read.result);
}

void CSCVShchedulerTaskArray::ReadFrom(const CPrivateProfile& profile, const std::wstring& file) {
    RemoveAllTasks();
    m_isForeign = !profile.IsEmpty() && !profile.HasSection(kTaskListSection);
    const std::int32_t count = profile.GetInt(kTaskListSection, kTaskCountKey, 0);
    for (const std::int32_t number : FindTaskSections(profile, 1, count)) {
        auto task = std::make_unique<CSCVShchedulerTask>();
        task->ReadFrom(profile, file, TaskSectionName(number));
        if (!task->m_strProjectPath.empty()) {
            m_tasks.push_back(std::move(task));
        }
    }
}

int CSCVShchedulerTaskArray::Save(IFileSystem& files, const std::wstring& file) {
    (void)TrySave(files, file);
    return 1;
}

FileResult CSCVShchedulerTaskArray::TrySave(IFileSystem& files, const std::wstring& file) {
    if (!m_unread && EqualNoCase(m_unread.path, file)) {
        return m_unread;
    }
    const auto count = static_cast<std::int32_t>(GetSize());
    const auto write = [&](CPrivateProfile& profile) {
        if (const auto stamp = files.Stamp(file); stamp && stamp != m_stamp) {
            TakeOverRuns(profile);  // else the older ones here would be written over them
        }
        const std::int32_t oldCount = SetCount(profile, count);
        for (std::int32_t i = 0; i < count; ++i) {
            GetAt(i)->WriteTo(profile, TaskSectionName(i + 1));
        }
        RemoveTaskSections(profile, count + 1, oldCount);
    };
    std::optional<FileStamp> stamp;
    FileResult result = LockAndEditProfile(files, file, write, &stamp);
    if (result) {
        RecordPlaces(file);
        m_stamp = stamp;
    }
    return result;
}

FileResult CSCVShchedulerTaskArray::TryEdit(IFileSystem& files, const std::wstring& file,
                                            const std::function<void()>& edit) {
    FileResult result = LockAndEditProfile(files, file, [&](CPrivateProfile& profile) {
        ReadFrom(profile, file);
        std::map<std::wstring, StoredTask> before;
        for (const auto& task : m_tasks) {
            before[task->m_strIniSection] = {profile.GetStrings(task->m_strIniSection, kKeyNames),
                                             ValuesOf(*task)};
        }
        edit();
        const auto count = static_cast<std::int32_t>(GetSize());
        const std::int32_t oldCount = SetCount(profile, count);
        for (std::int32_t i = 0; i < count; ++i) {
            const std::wstring section = TaskSectionName(i + 1);
            const auto values = ValuesOf(*GetAt(i));
            const auto old = before.find(GetAt(i)->m_strIniSection);
            std::vector<CPrivateProfile::Entry> entries;
            for (std::size_t key = 0; key < kKeyNames.size(); ++key) {
                if (old == before.end() || old->second.writes[key] != values[key]) {
                    entries.push_back({kKeyNames[key], values[key]});
                } else if (old->first != section) {
                    entries.push_back({kKeyNames[key], old->second.Moved(key)});
                }
            }
            profile.SetStrings(section, entries);
        }
        RemoveTaskSections(profile, count + 1, oldCount);
    });
    if (result) {
        RecordPlaces(file);
    }
    return result;
}

// Only after a save: a task that recorded a section which the file does not hold yet would, saved after its
// next run, overwrite another task's.
void CSCVShchedulerTaskArray::RecordPlaces(const std::wstring& file) {
    for (std::size_t i = 0; i < m_tasks.size(); ++i) {
        m_tasks[i]->m_strIniFile = file;
        m_tasks[i]->m_strIniSection = TaskSectionName(static_cast<std::int32_t>(i + 1));
        m_tasks[i]->m_bIsRunUnsaved = false;
        m_tasks[i]->m_tStoredRunTime = StoredInstant(m_tasks[i]->m_tLastRunTime);
    }
}
