#include "cli/commands/Looks.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/commands/TaskSelection.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/cli/ConsoleRun.h"

namespace {

using testing::HasSubstr;

TEST(TaskSelection, PatternsAreMatched) {
    const struct {
        const wchar_t* pattern;
        const wchar_t* project;
        bool matches;
    } table[] = {
        {L"C:\\P\\A.scvpr", L"c:\\p\\a.SCVPR", true},
        {L"a*", L"C:\\p\\a.scvpr", true},  // the name alone
        {L"p*", L"C:\\p\\a.scvpr", false},
        {L"C:\\*.scvpr", L"C:\\p\\q\\a.scvpr", true},
        {L"?.scvpr", L"C:\\p\\ab.scvpr", false},
        {L"*ab.scvpr", L"C:\\aab.scvpr", true},  // the star gives way twice
        {L"A?*", L"C:\\a", false},
    };
    for (const auto& row : table) {
        EXPECT_EQ(NamesProject(row.pattern, row.project), row.matches)
            << ToUtf8(row.pattern) << " for " << ToUtf8(row.project);
    }
}

// Seen from Monday, 3 June 2024, 10:00: one task that failed, one daily, one that is disabled.
class Looks : public ConsoleRun {
protected:
    Looks() {
        EXPECT_EQ(Run("add C:\\p\\daily.scvpr --start 2024-06-03T09:30 --days mon,tue,wed,thu,fri,sat,sun"),
                  0);
        EXPECT_EQ(Run("add C:\\p\\news.scvpr --start 2024-06-04T09:30 --days tue"), 0);
        EXPECT_EQ(Run("add C:\\p\\a,b.scvpr --start 2024-06-04T08:00 --disabled"), 0);
        shell.missing.insert(L"C:\\p\\daily.scvpr");
        EXPECT_EQ(Run("run daily*"), kFindings);
    }
};

TEST_F(Looks, ListsFailedAndNamedTasksALineEach) {
    const std::string daily =
        "2024-06-03 10:00\t2024-06-04 09:30\tFailure: File does not exist\tC:\\p\\daily.scvpr\tevery day at "
        "09:30\n";
    EXPECT_EQ(Run("list --failed"), kFindings);
    EXPECT_EQ(out.str(), daily);
    EXPECT_EQ(Run("list news* daily*"), kFine);
    EXPECT_EQ(out.str(), daily +
                             "-\t2024-06-04 09:30\t-\tC:\\p\\news.scvpr\tfirst on 4 Jun 2024 at 09:30, then "
                             "on Tue at 09:30\n");
    EXPECT_EQ(Run("list --failed news*"), kFine) << "nothing failed there";
    EXPECT_EQ(Run("list nothing*"), kUsage);
    EXPECT_EQ(Run("list --csv a*"), kFine);
    EXPECT_EQ(out.str(),
              "\xEF\xBB\xBF"
              "Enabled,Project,Last run,Last result,Next run,Command line,Section,Schedule\r\n"
              "no,\"C:\\p\\a,b.scvpr\",,,,\"\"\"C:\\p\\a,b.scvpr\"\" -dt -dr -s -qe -ex\","
              "SCVShchedulerTask3,\"once, on 4 Jun 2024 at 08:00\"\r\n");
}

TEST_F(Looks, NextRunsAreInOrderOfTime) {
    const std::string both =
        "2024-06-04 09:30:00  C:\\p\\daily.scvpr\n2024-06-04 09:30:00  C:\\p\\news.scvpr\n";
    const struct {
        const char* line;
        std::string shown;
    } table[] = {
        {"next --from 2024-06-03T10:00", both},  // 24 hours
        {"next --to 2024-06-04T09:29", ""},
        {"next --from 2024-06-04T09:31 --count 2",
         "2024-06-05 09:30:00  C:\\p\\daily.scvpr\n2024-06-06 09:30:00  C:\\p\\daily.scvpr\n"},
        {"next news* --from 2024-06-05 --to 2024-06-19",
         "2024-06-11 09:30:00  C:\\p\\news.scvpr\n2024-06-18 09:30:00  C:\\p\\news.scvpr\n"},
        {"next news* --count 2",
         "2024-06-04 09:30:00  C:\\p\\news.scvpr  first on 4 Jun 2024 at 09:30, then on Tue at 09:30\n"
         "2024-06-11 09:30:00  C:\\p\\news.scvpr\n"},
        {"next a*", "disabled             C:\\p\\a,b.scvpr  once, on 4 Jun 2024 at 08:00\n"},
        {"next --csv --to 2024-06-04T09:30 news*",
         "\xEF\xBB\xBFRun,Project\r\n2024-06-04 09:30:00,C:\\p\\news.scvpr\r\n"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(Run(row.line), kFine) << row.line << err.str();
        EXPECT_EQ(out.str(), row.shown) << row.line;
    }
}

TEST_F(Looks, TheWeekIsAGridOfHours) {
    EXPECT_EQ(Run("next --week"), kFine);
    std::istringstream lines(out.str());
    std::vector<std::string> grid;
    for (std::string line; std::getline(lines, line);) {
        grid.push_back(line);
    }
    ASSERT_EQ(grid.size(), 9U) << out.str();
    const std::size_t nine = grid[0].find("09");
    EXPECT_EQ(grid[1].substr(0, 6), "Mon 03");
    EXPECT_EQ(grid[1][nine + 1], '.') << "today's run has passed";
    EXPECT_EQ(grid[2][nine + 1], '2');
    EXPECT_EQ(grid[8], "Most starts in one minute: 2, first at 2024-06-04 09:30.");
    EXPECT_EQ(Run("next --week --json"), kFine);
    EXPECT_EQ(nlohmann::json::parse(out.str())["days"][1]["starts"][9], 2);
}

}  // namespace
