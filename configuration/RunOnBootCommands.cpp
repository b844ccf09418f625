#include "configuration/RunOnBootCommands.h"

#include "configuration/ProgramLocation.h"
#include "configuration/clsExeOrIDE.h"
#include "configuration/clsRunOnBootOnceAlways.h"
#include "core/CheckTimeControl.h"

namespace vantrellion {

namespace {

void RunOnBootCommand(System& s, RunOnBootChoice choice, const RunOnBootMarks& checkMarks) {
    const CheckTimeHold hold(s);
    if (checkMarks) checkMarks(choice);
    SetRunMeNever(s);
    if (choice == RunOnBootChoice::Always) SetRunMeAlways(s, RunOnBootPath());
    if (choice == RunOnBootChoice::Once) SetRunMeOnce(s, RunOnBootPath());
}

}  // namespace

std::string RunOnBootPath(const std::string& programDirectory, const std::string& programName,
                          Flag runningInIDE) {
    if (runningInIDE == True) return programDirectory + "/VantrellionTestRunOnBoot.exe";
    return programDirectory + "/" + programName;
}

std::string RunOnBootPath() {
    return RunOnBootPath(ProgramDirectory(), ProgramName(), RunningInIDE());
}

void mnuToolRunOnBootOnce(System& s, const RunOnBootMarks& checkMarks) {
    RunOnBootCommand(s, RunOnBootChoice::Once, checkMarks);
}

void mnuToolRunOnBootAlways(System& s, const RunOnBootMarks& checkMarks) {
    RunOnBootCommand(s, RunOnBootChoice::Always, checkMarks);
}

void mnuToolRunOnBootNever(System& s, const RunOnBootMarks& checkMarks) {
    RunOnBootCommand(s, RunOnBootChoice::Never, checkMarks);
}

}  // namespace vantrellion
