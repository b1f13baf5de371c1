#include "core/list/TaskListFile.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "core/list/PrivateProfile.h"
#include "core/list/ProfileFile.h"
#include "core/list/StoredNumbers.h"
#include "core/list/TaskSection.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

namespace {

using Status = IFileSystem::Status;

constexpr std::wstring_view kSectionPrefix = L"SCVShchedulerTask";

void SetTaskSectionName(std::int32_t number, std::wstring& name) {
    name = kSectionPrefix;
    AppendNumber(number, name);
}

// The number of a task section's name as TaskSectionName writes it; 0 for any other name.
std::int32_t SectionNumber(std::wstring_view name) {
    if (!EqualNoCase(name.substr(0, kSectionPrefix.size()), kSectionPrefix)) {
        return 0;
    }
    const std::wstring_view digits = name.substr(kSectionPrefix.size());
    const std::int32_t number = ParseStoredNumber(digits);
    return digits == std::to_wstring(number) ? number : 0;
}

// Returns the count that the file held before.
std::int32_t SetCount(CPrivateProfile& profile, std::int32_t count) {
    const std::int32_t oldCount = profile.GetInt(kTaskListSection, kTaskCountKey, 0);
    CPrivateProfile::Entry newCount{kTaskCountKey, {}};
    AppendNumber(count, newCount.value);
    profile.SetStrings(kTaskListSection, {&newCount, 1});
    return oldCount;
}

void RemoveTaskSections(CPrivateProfile& profile, std::int32_t first, std::int32_t last) {
    if (first > last) {
        return;
    }
    for (const std::int32_t number : FindTaskSections(profile, first, last)) {
        profile.RemoveSection(TaskSectionName(number));
    }
}

// The tasks of a file before an edit, to find out afterwards which values the edit has changed.
class CBeforeEdit {
public:
    CBeforeEdit(const CPrivateProfile& profile, const CSCVShchedulerTaskArray& tasks) {
        for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
            const std::wstring& section = tasks[i]->m_strIniSection;
            m_sections[section] = {profile.GetStrings(section, kStoredKeyNames), ValuesOf(*tasks[i])};
        }
    }

    // The entries to write so that the section holds the task: all for a new task or one that has moved to
    // another section, otherwise those whose values have changed.
    [[nodiscard]] std::vector<CPrivateProfile::Entry> EntriesToWrite(const CSCVShchedulerTask& task,
                                                                     const std::wstring& section) const {
        const auto old = m_sections.find(task.m_strIniSection);
        const bool isNew = old == m_sections.end();
        const StoredValues values = ValuesOf(task);
        std::vector<CPrivateProfile::Entry> entries;
        for (std::size_t key = 0; key < values.size(); ++key) {
            if (isNew || old->second.written[key] != values[key]) {
                entries.push_back({kStoredKeyNames[key], values[key]});
            } else if (old->first != section) {
                entries.push_back({kStoredKeyNames[key], old->second.ForOtherSection(key)});
            }
        }
        return entries;
    }

private:
    struct Section {
        std::vector<std::optional<std::wstring>> found;  // the values that the file holds
        StoredValues written;                            // what the task would write for them

        // The value found, quoted again as it was: its apostrophes are doubled already.
        [[nodiscard]] std::wstring ForOtherSection(std::size_t key) const {
            if (!found[key]) {
                return written[key];
            }
            return written[key].starts_with(L'\'') ? L'\'' + *found[key] + L'\'' : *found[key];
        }
    };

    std::map<std::wstring, Section> m_sections;  // by name
};

}  // namespace

std::wstring TaskSectionName(std::int32_t number) {
    std::wstring name;
    SetTaskSectionName(number, name);
    return name;
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

FileResult CSCVShchedulerTaskArray::TrySave(IFileSystem& files, const std::wstring& file) {
    if (!m_unread && EqualNoCase(m_unread.path, file)) {
        return m_unread;
    }
    const auto write = [&](CPrivateProfile& profile) {
        if (const auto stamp = files.Stamp(file); stamp && stamp != m_stamp) {
            TakeOverRuns(profile);  // or this save would overwrite later runs in the file
        }
        const auto count = static_cast<std::int32_t>(GetSize());
        const std::int32_t oldCount = SetCount(profile, count);
        CTaskWriter writer(profile);
        std::wstring section;
        for (std::int32_t i = 0; i < count; ++i) {
            SetTaskSectionName(i + 1, section);
            writer.Write(*GetAt(i), section);
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
        const CBeforeEdit before(profile, *this);
        edit();
        const auto count = static_cast<std::int32_t>(GetSize());
        const std::int32_t oldCount = SetCount(profile, count);
        for (std::int32_t i = 0; i < count; ++i) {
            const std::wstring section = TaskSectionName(i + 1);
            profile.SetStrings(section, before.EntriesToWrite(*GetAt(i), section));
        }
        RemoveTaskSections(profile, count + 1, oldCount);
    });
    if (result) {
        RecordPlaces(file);
    }
    return result;
}

// Call it only after a save: if a task recorded a section that the file does not have yet, saving its next
// run would overwrite another task.
void CSCVShchedulerTaskArray::RecordPlaces(const std::wstring& file) {
    std::wstring section;
    for (std::size_t i = 0; i < m_tasks.size(); ++i) {
        SetTaskSectionName(static_cast<std::int32_t>(i + 1), section);
        m_tasks[i]->m_strIniFile = file;
        m_tasks[i]->m_strIniSection = section;
        m_tasks[i]->m_bIsRunUnsaved = false;
        m_tasks[i]->m_tStoredRunTime = StoredInstant(m_tasks[i]->m_tLastRunTime);
    }
}

int CSCVShchedulerTaskArray::Load(IFileSystem& files, const std::wstring& file) {
    return TryLoad(files, file) ? 1 : 0;
}

int CSCVShchedulerTaskArray::Save(IFileSystem& files, const std::wstring& file) {
    (void)TrySave(files, file);
    return 1;
}
