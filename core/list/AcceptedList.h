#pragma once

#include <optional>
#include <string>

#include "core/list/RetryTicks.h"
#include "core/platform/FileSystem.h"
#include "core/task/SCVShchedulerTaskArray.h"

// Saves the list that the user has accepted, for a caller that may not wait for a file that is in use. A list
// that cannot be saved at once is kept as it was accepted, whatever is edited meanwhile, and tried again from
// tick to tick until the file holds it. A later one takes the place of an earlier one.
class CAcceptedList {
public:
    // `files` outlives the object. `path` is that of the task list file.
    CAcceptedList(IFileSystem& files, std::wstring path);

    // Accepts the tasks as they are now and tries to save them: also over a list that could not be read
    // lately, so that the caller has to have read it before, or to know that there was none. `tasks` learn
    // where the file keeps them. When the result is not Ok, Pending() keeps them.
    FileResult Save(CSCVShchedulerTaskArray& tasks);

    // The list that is still to be saved, null when there is none. Runs that happen meanwhile are to be given
    // to its tasks too. In place of loading the file, copy it: the file does not hold it yet.
    [[nodiscard]] CSCVShchedulerTaskArray* Pending() noexcept { return m_list ? &*m_list : nullptr; }
    // To be called once a tick, before Pending() is saved again by one try of each file call. Ok when nothing
    // is pending any more, Busy also on a tick that does not try.
    FileResult OnTick(CSCVShchedulerTaskArray& tasks);

private:
    FileResult TrySave(CSCVShchedulerTaskArray& tasks);

    IFileSystem& m_files;
    std::wstring m_path;
    std::optional<CSCVShchedulerTaskArray> m_list;
    CRetryTicks m_retry;
};
