#pragma once

#include <nlohmann/json_fwd.hpp>

// Keys stand in the order in which they are set. To be written with DumpJson (JsonReport.h).
using Json = nlohmann::ordered_json;
