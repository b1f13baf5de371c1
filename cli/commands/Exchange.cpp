#include "cli/commands/Exchange.h"

#include <istream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/report/ChangeReport.h"
#include "cli/report/JsonFields.h"
#include "cli/report/JsonReport.h"
#include "cli/commands/Refusal.h"
#include "cli/report/TaskJson.h"
#include "core/platform/FileSystem.h"
#include "core/list/ProfileFile.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"
#include "util/TextEncoding.h"
#include "util/Utf8.h"

namespace {

Json Parse(const std::string& text) {
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        // Without the library's own number of the error, and with bytes that are no UTF-8 made so.
        const std::string what = ToUtf8(FromUtf8(error.what()));
        const std::size_t end = what.find("] ");
        throw CRefusal("the text is no JSON: " + (end == std::string::npos ? what : what.substr(end + 2)));
    }
}

}  // namespace

std::string ExportTasks(const CSCVShchedulerTaskArray& tasks) {
    Json json;
    json["tasks"] = Json::array();
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        json["tasks"].push_back(ExportTask(*tasks[i]));
    }
    return DumpJson(json) + '\n';
}

void WriteExport(const std::string& text, const std::wstring& file, const Context& context) {
    if (file.empty()) {
        context.out << text;
        return;
    }
    if (EqualNoCase(file, context.list)) {
        throw CRefusal(ToUtf8(file) + " is the task list itself");
    }
    if (!ReplaceFileBytes(context.platform.files, file, text)) {
        throw CRefusal(ToUtf8(file) + " cannot be written");
    }
}

std::string ReadImport(const std::wstring& file, const Context& context) {
    std::string bytes;
    if (file.empty()) {
        bytes.assign(std::istreambuf_iterator<char>(context.in), {});
    } else if (const auto status = context.platform.files.Read(file, bytes);
               status != IFileSystem::Status::Ok) {
        throw CRefusal(ToUtf8(file) +
                       (status == IFileSystem::Status::Missing ? " does not exist" : " cannot be read"));
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
        throw CRefusal("the text is no UTF-16: half of a surrogate pair stands alone");
    }
    return utf8;
}

void ImportTasks(const std::string& text, bool replace, std::int64_t now, CSCVShchedulerTaskArray& tasks,
                 CChangeReport& report) {
    const Json json = Parse(text);
    const CJsonFields fields(json, "the text", {"tasks"});
    const Json* list = fields.Find("tasks");
    if (list == nullptr || !list->is_array()) {
        throw CRefusal("the text has to hold the array \"tasks\"");
    }
    for (std::size_t i = 0; i < list->size(); ++i) {
        const std::string where = "tasks[" + std::to_string(i) + "]";
        const std::wstring project = ImportedProject((*list)[i], where);
        std::ptrdiff_t place = tasks.FindTask(project);
        const bool isListed = place >= 0;
        if (!isListed) {
            place = tasks.GetSize();
        } else if (tasks[place]->m_strIniSection.empty()) {  // not of the file
            throw CRefusal(where + " names the project " + ToUtf8(project) + " a second time");
        } else if (!replace) {
            throw CRefusal(where + ": the project " + ToUtf8(project) +
                           " is in the list already; --replace lets it take that place");
        } else {
            tasks.RemoveTaskAt(place);
        }
        CSCVShchedulerTask& task = *tasks[tasks.InsertTask(place, project, now)];
        ImportTask((*list)[i], where, task);
        report.Add(isListed ? "replaced" : "added", task);
    }
}
