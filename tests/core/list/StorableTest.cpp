#include "core/list/Storable.h"

#include <gmock/gmock.h>

#include "core/task/SCVShchedulerTask.h"
#include "util/Utf8.h"

static void ImportInto(CSCVShchedulerTask& task, const wchar_t* element) {
    task.m_bImportInputValues = 1;
    task.m_strInputValuesFile = L"v.csv";
    task.m_strInputElementName = element;
}

// What the list file would change in a task is refused, with the reason.
TEST(Storable, RefusesWhatTheFileWouldChange) {
    using Task = CSCVShchedulerTask;
    const struct {
        const char* label;
        void (*make)(Task&);
        const char* why;
    } cases[] = {
        {"nothing", [](Task&) {}, ""},
        {"apostrophe", [](Task& task) { task.m_strExportFile = L"C:\\it's.csv"; }, ""},
        {"switch without its file", [](Task& task) { task.m_bAddUrls = 1; }, "add-urls on"},
        {"path that reads as a switch", [](Task& task) { task.m_strProjectPath = L"/at/b"; }, "add-urls off"},
        {"comma in the element", [](Task& task) { ImportInto(task, L"a,b"); }, "import-values 'v.csv'"},
        {"blank round the element", [](Task& task) { ImportInto(task, L" a "); }, "the input element"},
        {"double quote", [](Task& task) { task.m_strProjectPath = L"C:\\a\".scvpr"; }, "the project"},
        {"line break", [](Task& task) { task.m_strLastRunResult = L"a\nb"; }, "control character"},
        {"long command line", [](Task& task) { task.m_strProjectPath.assign(1024, L'x'); },
         "its command line"},
        {"long result", [](Task& task) { task.m_strLastRunResult.assign(1024, L'x'); }, "its last result"},
    };
    for (const auto& row : cases) {
        Task task;
        task.m_strProjectPath = L"C:\\a.scvpr";
        row.make(task);
        const std::string why = ToUtf8(WhyNotStorable(task));
        EXPECT_EQ(why.empty(), *row.why == '\0') << row.label << ": " << why;
        EXPECT_THAT(why, testing::HasSubstr(row.why)) << row.label;
    }
}
