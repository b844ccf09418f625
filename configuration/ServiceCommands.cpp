#include "configuration/ServiceCommands.h"

#include <pwd.h>
#include <unistd.h>

#include "core/CheckTimeControl.h"

namespace vantrellion {

namespace {

const std::vector<std::string> kStop{"systemctl", "--user", "stop", ServiceUnitName};
const std::vector<std::string> kStart{"systemctl", "--user", "start", ServiceUnitName};
const std::vector<std::string> kEnable{"systemctl", "--user", "enable",
                                       std::string(ServiceUnitName) + ".service"};

// Runs a command; on failure, the text of what went wrong for a box ("" when it worked).
std::string RunOrTell(ServiceManager& manager, const std::vector<std::string>& command) {
    std::string output;
    const int status = manager.Run(command, output);
    if (status == 0) return "";
    std::string text = "\"" + CommandLineText(command) + "\" ";
    text +=
        status < 0 ? "could not be run." : "failed (exit status " + std::to_string(status) + ").";
    while (!output.empty() && (output.back() == '\n' || output.back() == '\r'))
        output.pop_back();
    if (!output.empty()) text += "\r\n\r\n" + output;
    return text;
}

}  // namespace

bool HolderIsService(const LockHolder& holder) {
    return holder.Program == ServiceUnitName;
}

RunningServiceChoice AskAboutRunningService(System& s, const LockHolder& holder) {
    MessageBoxRequest box{
        "The Vantrellion service (" + std::string(ServiceUnitName) +
            (holder.Pid ? ", process " + std::to_string(holder.Pid) : std::string()) +
            ") runs the schedule and drives the boards. Only one program may drive a board."
            "\r\n\r\nView shows the service's schedule and state without changing them.",
        Buttons::YesNoCancel, Icon::Exclamation};
    box.ButtonTexts = {"View", "Stop the service and take over", "Quit"};
    switch (s.Message(box)) {
        case Answer::Yes:
            return RunningServiceChoice::View;
        case Answer::No:
            return RunningServiceChoice::TakeOver;
        default:
            return RunningServiceChoice::Quit;
    }
}

bool StopServiceForTakeOver(System& s, ServiceManager& manager) {
    const std::string problem = RunOrTell(manager, kStop);
    if (problem.empty()) return true;
    s.Message({"The service could not be stopped: " + problem, Buttons::OK, Icon::Critical});
    return false;
}

void OfferServiceRestart(System& s, ServiceManager& manager) {
    MessageBoxRequest box{"The service " + std::string(ServiceUnitName) +
                              " was stopped when this program took over. Start it again?",
                          Buttons::YesNo, Icon::Question};
    if (s.Message(box) != Answer::Yes) return;
    const std::string problem = RunOrTell(manager, kStart);
    if (!problem.empty())
        s.Message({"The service could not be started: " + problem, Buttons::OK, Icon::Critical});
}

void mnuToolRunAsService(System& s, ServiceManager& manager, const std::string& userName) {
    const CheckTimeHold hold(s);
    const std::vector<std::string> linger{"loginctl", "enable-linger", userName};
    std::string problem = RunOrTell(manager, kEnable);
    if (problem.empty()) problem = RunOrTell(manager, linger);
    if (!problem.empty()) {
        s.Message({"Run as a Service: " + problem, Buttons::OK, Icon::Critical});
        return;
    }
    s.Message(
        {"Done: \"" + CommandLineText(kEnable) + "\" and \"" + CommandLineText(linger) +
             "\".\r\n\r\nThe service " + ServiceUnitName +
             " now starts when the computer boots, without a login, and runs the "
             "schedule last saved. Quit this program before starting the service "
             "(\"systemctl --user start " +
             ServiceUnitName +
             "\"): only one may drive the boards.\r\n\r\nTo undo: \"systemctl --user disable " +
             ServiceUnitName + "\" and \"loginctl disable-linger " + userName + "\".",
         Buttons::OK, Icon::Information});
}

std::string CurrentUserName() {
    if (const passwd* pw = ::getpwuid(::getuid()); pw && pw->pw_name) return pw->pw_name;
    return std::to_string(::getuid());
}

}  // namespace vantrellion
