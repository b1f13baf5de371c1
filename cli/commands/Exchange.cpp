#include "cli/commands/Exchange.h"

#include <functional>
#include <istream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>
#include <vector>

#include "cli/commands/Edit.h"
#include "cli/report/ChangeReport.h"
#include "cli/report/JsonFields.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Refusal.h"
#include "cli/report/TaskJson.h"
#include "cli/report/Text.h"
#include "core/list/ProfileFile.h"
#include "core/platform/FileSystem.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"
#include "util/TextEncoding.h"

namespace {

// Throws CRefusal for an object that has a key twice. The parser alone would keep one of the two.
class KeyWatch {
public:
    bool operator()(int /*depth*/, Json::parse_event_t event, const Json& parsed) {
        switch (event) {
            case Json::parse_event_t::object_start:
            case Json::parse_event_t::array_start:
                m_open.emplace_back().isArray = event == Json::parse_event_t::array_start;
                break;
            case Json::parse_event_t::key:
                Enter(parsed.get_ref<const std::string&>());
                break;
            case Json::parse_event_t::object_end:
            case Json::parse_event_t::array_end:
                m_open.pop_back();
                [[fallthrough]];
            case Json::parse_event_t::value:
                if (!m_open.empty()) {
                    ++m_open.back().index;
                }
                break;
        }
        return true;
    }

private:
    struct Open {
        bool isArray = false;
        std::size_t index = 0;  // of the element that comes next
        std::string key;        // whose value comes next
        std::set<std::string> keys;
    };

    void Enter(const std::string& key) {
        if (!m_open.back().keys.insert(key).second) {
            throw CRefusal("the key '" + key + "' appears twice in " + Place());
        }
        m_open.back().key = key;
    }
    // "tasks[1].repeat" for the innermost object.
    [[nodiscard]] std::string Place() const {
        std::string place;
        for (std::size_t i = 0; i + 1 < m_open.size(); ++i) {
            place += m_open[i].isArray ? "[" + std::to_string(m_open[i].index) + "]"
                                       : (place.empty() ? "" : ".") + m_open[i].key;
        }
        return place.empty() ? "the text" : place;
    }

    std::vector<Open> m_open;
};

Json Parse(const std::string& text) {
    try {
        KeyWatch watch;
        return Json::parse(text, std::ref(watch));
    } catch (const Json::parse_error& error) {
        // Without the library's error number, and with invalid UTF-8 replaced.
        const std::string what = ToUtf8(FromUtf8(error.what()));
        const std::size_t end = what.find("] ");
        throw CRefusal("the text is not JSON: " + (end == std::string::npos ? what : what.substr(end + 2)));
    }
}

// Imports one task into the array.
void ImportOne(const Json& json, const std::string& where, const Job& job, CSCVShchedulerTaskArray& tasks,
               CChangeReport& report) {
    const std::wstring project = ImportedProject(json, where);
    std::ptrdiff_t place = tasks.FindTask(project);
    const bool isListed = place >= 0;
    if (!isListed) {
        place = tasks.GetSize();
    } else if (tasks[place]->m_strIniSection.empty()) {  // imported before
        throw CRefusal(Join(where, " names the project ", project, " a second time"));
    } else if (!job.arguments.replace) {
        throw CRefusal(Join(where, ": the project ", project,
                            " is in the list already; --replace lets it take that place"));
    } else {
        tasks.RemoveTaskAt(place);
    }
    CSCVShchedulerTask& task = *tasks[tasks.InsertTask(place, project, job.now)];
    ImportTask(json, where, task);
    report.Add(isListed ? kReplaced : kAdded, task);
}

}  // namespace

int ExportList(const Job& job) {
    Json json;
    json["version"] = kJsonVersion;
    json["tasks"] = Json::array();
    for (std::ptrdiff_t i = 0; i < job.tasks.GetSize(); ++i) {
        json["tasks"].push_back(ExportTask(*job.tasks[i]));
    }
    const std::string text = DumpJson(json) + '\n';
    const std::wstring& file = job.arguments.file;
    if (file.empty()) {
        job.context.out << text;
    } else if (EqualNoCase(file, job.context.list)) {
        throw CRefusal(Join(file, " is the task list itself"));
    } else if (const FileResult written = ReplaceFileBytes(job.context.platform.files, file, text);
               !written) {
        throw CRefusal(Join("the tasks cannot be written: ", job.context.Reason(written)));
    }
    return kFine;
}

std::string ReadImport(const std::wstring& file, const Context& context) {
    std::string bytes;
    if (file.empty()) {
        bytes.assign(std::istreambuf_iterator<char>(context.in), {});
    } else if (const FileResult read = context.platform.files.Read(file, bytes);
               read == FileResult::Status::Missing) {
        throw CRefusal(Join(file, " does not exist"));
    } else if (!read) {
        throw CRefusal(Join("the tasks cannot be read: ", context.Reason(read)));
    }
    const TextEncoding encoding = DetectEncoding(bytes);
    bytes.erase(0, ByteOrderMark(encoding).size());
    if (UnitSize(encoding) == 1) {
        return bytes;
    }
    std::wstring text;
    AppendDecoded(encoding, bytes, text);
    std::string utf8 = ToUtf8(text);
    if (FromUtf8(utf8) != text) {
        throw CRefusal("the text is not valid UTF-16: it has half of a surrogate pair");
    }
    return utf8;
}

int ImportList(const Job& job) {
    const Json json = Parse(job.input);
    const CJsonFields fields(json, "the text", {"version", "tasks"});
    if (fields.Number("version").value_or(kJsonVersion) > kJsonVersion) {
        throw CRefusal("the text was written by a later version of scvsched, which this one cannot read");
    }
    const Json* list = fields.Find("tasks");
    if (list == nullptr || !list->is_array()) {
        throw CRefusal("the text needs the array \"tasks\"");
    }
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        for (std::size_t i = 0; i < list->size(); ++i) {
            ImportOne((*list)[i], "tasks[" + std::to_string(i) + "]", job, tasks, report);
        }
    });
    return kFine;
}
