#pragma once

#include <functional>
#include <string>

#include "cli/commands/Context.h"
#include "core/launch/SchedulingPass.h"

class CLaunchClaim;

// Runs one scheduling pass and prints a line for each launch; with --json one object with all launches.
// Returns kFindings when a launch failed or a run could not be saved.
[[nodiscard]] int RunPass(const Job& job);

// Runs the pass. True when every launch succeeded and was saved. `stopped` is set to the reason when the pass
// stopped early. The reason is reported only if it differs from the previous content of `stopped`, so that a
// watch does not repeat it on every tick.
[[nodiscard]] bool LaunchDueTasks(CSCVShchedulerTaskArray& tasks, const Context& context, CLaunchClaim& claim,
                                  std::string& stopped, const std::function<void(const PassRun&)>& launched);
