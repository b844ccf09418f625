// The commands of the "&Tool" menu that drive all relays at once, zero the counters and switch
// logging and emulation. Each one that writes ports or switches a mode holds the timer off
// while it works, so that no tick writes the relays back in between; ResumeCheckTime at the
// end turns the timer on again, also when it was off before the command.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Every relay on.
void mnuToolSetRelays(System& s);
// Every relay on, one after the other with the step delay.
void mnuToolSetRelaysDelay(System& s);
// As the delay variant, then the screen refreshed and a pause naming board 0.
void mnuToolSetRelaysPause(System& s);

// Every relay of board 0 off, also where the configuration does not allow a reset. ResetOnExit
// of board 0 is left at 1 afterwards, so the board is also reset at exit until the
// configuration is loaded again.
void mnuToolResetRelays(System& s);
// Every relay off, one after the other with the step delay; ResetOnExit is put back.
void mnuToolResetRelaysDelay(System& s);
// As the delay variant, then the screen refreshed and a pause naming board 1 and "ON".
void mnuToolResetRelaysPause(System& s);

// Every count to 0; an active counter shows the 0, an inactive one keeps its caption. The
// restart file keeps the counts.
void mnuToolZeroCounters(System& s);

// Logging on or off, stored in the configuration and shown in the menu.
void mnuToolLogging(System& s);
// Emulation on or off, stored in the configuration; the relays are then reset in the mode just
// entered, and the menus show the mode.
void mnuToolRunNoBoards(System& s);

// Deletes the restart file, and nothing else: the next change of the schedule writes it again.
void mnuToolRemoveRestartFile(System& s);

}  // namespace vantrellion
