#pragma once

#include <functional>
#include <string>

#include "cli/commands/Context.h"
#include "core/launch/SchedulingPass.h"

class CLaunchClaim;

// One scheduling pass over the tasks, a line for each launch; with --json one object with all launches.
// kFindings when a launch failed or a result could not be saved in the list.
[[nodiscard]] int RunPass(const Job& job);

// The pass itself. True when every launch succeeded and was saved. `stopped` becomes why the pass stopped
// early; it is reported when it differs from the one passed in, so that a watch does not repeat it on every
// tick.
[[nodiscard]] bool LaunchDueTasks(CSCVShchedulerTaskArray& tasks, const Context& context, CLaunchClaim& claim,
                                  std::string& stopped, const std::function<void(const PassRun&)>& launched);
