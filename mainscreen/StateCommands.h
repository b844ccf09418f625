// The commands of the "States/Inputs" menu: each board submenu drives that board's relays by
// hand, to test the wiring. Board n is the submenu's index, 0 for "Manual Set Board 1". What a
// command sets on a port stands only until the next tick recomputes the outputs; the pause
// variants therefore hold the timer off until the user goes on.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// mnuStateMan_Bn_On(i): relay i of board n on, the step delay, and the screen refreshed.
void mnuStateMan_On(System& s, int n, int i);
// mnuStateMan_Bn_Off(i): relay i of board n off, the step delay, and the screen refreshed.
void mnuStateMan_Off(System& s, int n, int i);
// mnuStateMan_Bn_AllOn / AllOff: the On or Off command for relays 0 to 7, then one more
// refresh.
void mnuStateMan_AllOn(System& s, int n);
void mnuStateMan_AllOff(System& s, int n);
// mnuStateMan_Bn_StepAll: All On then All Off with the step delay switched on, so that each
// relay can be watched in turn. Board 0's command leaves the delay on for every later relay
// command; the other boards' commands switch it off again.
void mnuStateMan_StepAll(System& s, int n);
// mnuStateMan_Bn_AllOnPause / AllOffPause: with the timer off, All On or All Off and a pause
// naming board n + 1; the timer comes back on when the user goes on.
void mnuStateMan_AllOnPause(System& s, int n);
void mnuStateMan_AllOffPause(System& s, int n);

}  // namespace vantrellion
