// The three commands of the Tools submenu "Run when Computer Boots (Starts)": Next Time, Always
// and Never. Each stops tmrCheckTime, shows its check mark, removes every entry so that at
// most one stands afterwards, writes its own, and resumes the timer. The check marks record
// the choice of this run only; the menu shows them through checkMarks, which the command
// calls where the mark is set.
#pragma once

#include <functional>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

enum class RunOnBootChoice { Once, Always, Never };

// The command line's program: in a development build the program folder and
// "/VantrellionTestRunOnBoot.exe", else the program folder, "/" and the program's name without
// its extension. The folder stands as it is, blanks included, with no quotation marks.
std::string RunOnBootPath(const std::string& programDirectory, const std::string& programName,
                          Flag runningInIDE);
// The same for the running program.
std::string RunOnBootPath();

using RunOnBootMarks = std::function<void(RunOnBootChoice)>;

void mnuToolRunOnBootOnce(System& s, const RunOnBootMarks& checkMarks);
void mnuToolRunOnBootAlways(System& s, const RunOnBootMarks& checkMarks);
void mnuToolRunOnBootNever(System& s, const RunOnBootMarks& checkMarks);

}  // namespace vantrellion
