#pragma once

#include <cstdint>
#include <string>

#include "cli/report/Json.h"

class CSCVShchedulerTask;

// A whole task as JSON, for export and import: what is exported and imported again gives the same JSON.

// The commands that are on, by the names of their options: true, or the text of those that have one.
[[nodiscard]] Json CommandsAsJson(const CSCVShchedulerTask& task);
[[nodiscard]] Json ExportTask(const CSCVShchedulerTask& task);

// The project of such an object; throws as ImportTask does.
[[nodiscard]] std::wstring ImportedProject(const Json& json, const std::string& where);

// Fills in a new task of that project. What the object does not say stays as a new project has it. Throws
// CRefusal, with the task half filled, for what is missing, unknown, of another type or out of range; `where`
// is the object's place in the text, for its sentence.
void ImportTask(const Json& json, const std::string& where, CSCVShchedulerTask& task);
