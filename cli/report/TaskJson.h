#pragma once

#include <cstdint>
#include <string>

#include "cli/report/Json.h"

class CSCVShchedulerTask;

// A whole task as JSON, for export and import. Exporting an imported task gives the same JSON again.

// The commands that are on, under the names of their options: the text of a command that has one, or true.
[[nodiscard]] Json CommandsAsJson(const CSCVShchedulerTask& task);
[[nodiscard]] Json ExportTask(const CSCVShchedulerTask& task);

// The project of such an object; throws as ImportTask does.
[[nodiscard]] std::wstring ImportedProject(const Json& json, const std::string& where);

// Sets the fields of a new task. Keys that the object does not have keep the values of a new project. Throws
// CRefusal, with the task partly set, for a value that is missing, unknown, of a wrong type or out of range.
// `where`, the object's place in the text, is part of its message.
void ImportTask(const Json& json, const std::string& where, CSCVShchedulerTask& task);
