#include "desktop/EventGuard.h"

#include <unistd.h>

#include <exception>

#include "core/FatalError.h"
#include "mainscreen/ErrorMsgbox.h"

namespace vantrellion {

namespace {

[[noreturn]] void EndProgram(System& s, const std::string& description, int number) {
    MessageBoxRequest box;
    box.Prompt = "Run-time error '" + std::to_string(number) + "':\r\n\r\n" + description;
    box.BoxIcon = Icon::Critical;
    s.Message(box);
    ::_exit(1);
}

}  // namespace

void RunOrEnd(System& s, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const FatalError& e) {
        EndProgram(s, e.what(), e.Number());
    } catch (const std::exception& e) {
        EndProgram(s, e.what(), 0);
    }
}

void RunCommand(System& s, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const FatalError& e) {
        ErrorMsgbox_DefaultError(s, e.what(), e.Number(), e.Source());
    } catch (const std::exception& e) {
        ErrorMsgbox_DefaultError(s, e.what(), 0, "Vantrellion");
    }
}

}  // namespace vantrellion
