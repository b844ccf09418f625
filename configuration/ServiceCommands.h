// What the desktop program does about the service vantrelliond: the box when the service holds
// the instance lock, stopping the service to take over and starting it again at exit, and the
// Run on Boot menu's "Run as a Service (no login needed)".
#pragma once

#include <string>

#include "configuration/ServiceManager.h"
#include "core/InstanceLock.h"
#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* ServiceUnitName = "vantrelliond";

enum class RunningServiceChoice { View, TakeOver, Quit };

// True when the lock's holder is the service.
bool HolderIsService(const LockHolder& holder);

// The one box of a start while the service holds the lock: it names the service and its
// process, and offers View, Stop the service and take over, and Quit.
RunningServiceChoice AskAboutRunningService(System& s, const LockHolder& holder);

// Runs "systemctl --user stop vantrelliond". False, after a box with systemctl's words, when it
// failed.
bool StopServiceForTakeOver(System& s, ServiceManager& manager);

// At the exit of a program that took over from the service: asks whether to start the service
// again, and does so on Yes.
void OfferServiceRestart(System& s, ServiceManager& manager);

// "Run as a Service (no login needed)": enables the user unit and lingering for this user, then
// says what it did and how to undo it.
void mnuToolRunAsService(System& s, ServiceManager& manager, const std::string& userName);

// The name of the user running the program, for loginctl.
std::string CurrentUserName();

}  // namespace vantrellion
