// The shared state of the system: plain data that every operation reads and writes directly.
// ModRelay holds the configuration side (the variables of modRelay), FrmRelay the schedule
// side owned by the main screen. System binds both to the platform interfaces; a test creates
// a fresh System with its fakes.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/Constants.h"
#include "core/Flags.h"
#include "core/KeyValueBackend.h"
#include "core/MainScreenView.h"
#include "core/Platform.h"
#include "core/ScheduleHolds.h"
#include "core/ScheduleText.h"

namespace vantrellion {

class KeyValueStore;       // configuration/KeyValueStore.h
class clsResizeFormCntls;  // core/clsResizeFormCntls.h
class RecentFiles;         // core/RecentFiles.h
class BoardSet;            // boardio/BoardSet.h

struct RelayRecord {
    std::string DisplayName;
    DaysField DaysOfWeek;
    EvenOddCode DayHrEvenOdd;
    Flag Manual = 0;
    Flag Invert = 0;
    Flag CounterOn = 0;
    Flag HardStop = 0;
    std::string IconFile;
    int16_t Count = 0;
    int16_t OldState = 0;  // 0 off, 1 on, 9 not read yet
    int16_t NewState = 0;  // 0 off, 1 on, 9 not evaluated yet
    // The end of the running half-cycle of a cyclic relay, on the monotonic millisecond count;
    // 0 when no cycle runs.
    int64_t CycleStart = 0;
    std::string TotalTime;
    int16_t InputState = 0;  // 0 off, 1 on, 9 not read yet
    // Whether the last evaluation found the relay on a day off or paused: it then stays off
    // unless Manual holds it on, Invert or not.
    Hold Held = Hold::None;
};

// The sun of one day for a relay's sun times: worked out at the first evaluation of the day
// that needs it, and again when the day or the machine's location changes.
struct RelaySun {
    int Year = 0, Month = 0, Day = 0;  // the day it stands for; Year 0 before the first
    std::optional<GeoLocation> Place;  // the location it was worked out for
    SunDay Sun;
    bool Told = false;  // the log has said this day why a sun pair of the relay does not switch
};

struct BoardRecord {
    std::string ChipSetType;
    int16_t BaseAddress = 0;
    int16_t InputAddress = 0;
    int16_t CntlAddress = 0;
    int16_t PortConfigValue = 0;
    Flag LogBoard = 0;
    Flag ResetOnExit = 0;
    std::array<std::string, RelaysPerBoard> RelayName;
};

// The process-wide variables of modRelay, in their order.
struct ModRelay {
    int16_t StepDelay = 0;  // 0 none, 2000 pause between relays, 1000 no effect
    Flag TimeWindowShown = 0;
    std::string FileVersion;
    std::string LogFilePath, LogFileName;
    bool LogFileNameUnsaved = false;  // the store did not take LogFileName; tried again
    std::string DataFilePath, DataFileName;
    Flag LoggingOnOff = 0;
    Flag RunNoBoards = 0;
    Flag WarnOverLapTime = 0;
    Color ColorRelayON = 0, ColorRelayOFF = 0, ColorTimeON = 0, ColorTimeOFF = 0, ColorManualON = 0,
          ColorManualOFF = 0, ColorInputON = 0, ColorInputOFF = 0, ColorTTimeBkgrnd = 0,
          ColorNameBkgrnd = 0;
    std::array<Color, 8> ColorRelayGroup{};
    std::array<BoardRecord, BoardSlots> Board;
    // The machine's location for sunrise and sunset (store values Latitude and Longitude);
    // nothing until both are set.
    std::optional<GeoLocation> Location;
};

// The members of the main screen frmRelay that the core works on.
struct FrmRelay {
    std::array<RelayRecord, RelaySlots> Relay;
    std::array<TimeField, PairSlots> StartTime;
    std::array<TimeField, PairSlots> EndTime;
    std::array<Flag, PairSlots> PairActive{};
    std::array<RelaySun, RelaySlots> SunOfDay;
    // The days off and the pauses, kept with the schedule.
    ScheduleHolds Holds;
    std::array<uint8_t, LastBoard + 1> EmulatedPort{};
    uint8_t EmulatedOtherPort = 0;

    Flag FileChanged = 0;
    Flag CheckTimeAllowed = 0;
    int CheckTimeHolds = 0;  // commands holding tmrCheckTime off (CheckTimeHold)
    Flag RowsShown = 0;

    // Start-up guards and the flags of the window geometry, first set at creation.
    Flag ResizeReady = 0;
    Flag ResizedOnce = 0;
    Flag SavePositionAtExit = 0;
    // The proportional resize of the rows, made at load and dropped at unload.
    std::shared_ptr<clsResizeFormCntls> ResizeFormCntls;

    // Set once a close of the main screen goes on: a tick whose yield ran the close stops
    // there, so it neither writes the relays again nor turns the timer back on.
    Flag UnloadStarted = 0;

    Flag AutoRestarted = 0;     // the schedule in memory came from the restart file
    std::string BoardMark;      // what panel 1 of the status bar says of the boards now
    Flag RestartDisabled = 0;   // writing the restart file failed; no retry until New or Open
    int16_t LastLogMinute = 0;  // minute number of the last state line written to the log
};

// The outside world as the core sees it. Every pointer is set by whoever builds the System.
struct Platform {
    Clock* clock = nullptr;
    CheckTimer* timer = nullptr;
    EventPump* pump = nullptr;
    MessageBoxes* messages = nullptr;
    RowDisplay* display = nullptr;
    Ports* ports = nullptr;
    ConfigurationStore* configuration = nullptr;
    MainScreenView* screen = nullptr;
    FileDialogs* dialogs = nullptr;
    // The per-user machine directory, with its trailing "/": restart file, store, default log
    // directory. Tests point it at a temporary directory.
    std::string machineDirectory;
    // The user's documents folder, with its trailing "/": where the file dialogs start and
    // Run Files go until the user picks another place. Never the program's own folder, which
    // an installed program cannot write to. The desktop layer finds and creates it.
    std::string documentsDirectory;
    // The key/value store (store.db in the machine directory), made by whoever builds the
    // System; without one every key reads as missing and every write is refused.
    KeyValueStore* store = nullptr;
    // The freedesktop autostart folders that hold the start-up lists (run on boot), each with
    // its trailing "/": machine-wide and current user. Empty when not known; the lists then
    // read as missing and writes to them are refused. Tests point them at temporary folders.
    std::string autostartMachineDirectory;
    std::string autostartUserDirectory;
    // Told of every Run File opened or saved under a name; null when no list is kept.
    RecentFiles* recentFiles = nullptr;
    // Where window places are kept: the store, through its access layer.
    WindowPlaceSettings* windowPlaces = nullptr;
    // Told at the end of every tick.
    std::vector<TickObserver*> tickObservers;
    // The boards with their connections; null drives every board through the port library (or
    // emulated, with RunNoBoards), as a store without connection texts does.
    BoardSet* boards = nullptr;
};

struct System {
    ModRelay modRelay;
    FrmRelay frmRelay;
    Platform platform;

    // Shorthands for the interfaces, for readability at the call sites.
    Clock& clock() { return *platform.clock; }
    CheckTimer& timer() { return *platform.timer; }
    EventPump& pump() { return *platform.pump; }
    RowDisplay& display() { return *platform.display; }
    Ports& ports() { return *platform.ports; }
    MainScreenView& screen() { return *platform.screen; }
    // Shows a box. While a tick runs, the box is kept and shown once the tick has returned, and
    // the default button's answer is given at once: the tick never waits on a person.
    Answer Message(const MessageBoxRequest& r);

    // The boxes that the running tick raised, and whether one is running.
    bool deferBoxes = false;
    std::vector<MessageBoxRequest> deferredBoxes;
};

// The boxes of a System as an interface, for the parts that take one: they go through
// System::Message, so that a box raised in a tick waits until the tick has returned.
class SystemMessageBoxes : public MessageBoxes {
  public:
    explicit SystemMessageBoxes(System& s) : s_(s) {}
    Answer Show(const MessageBoxRequest& request) override { return s_.Message(request); }

  private:
    System& s_;
};

// The transient per-board arrays of a tick: one port byte per board, and its display text.
using PortBytes = std::array<uint8_t, LastBoard + 1>;
using PortTexts = std::array<std::string, LastBoard + 1>;

// A pair is set only when neither text is "" nor " ".
inline bool PairIsSet(const FrmRelay& f, int k) {
    return !f.StartTime[k].IsBlank() && !f.EndTime[k].IsBlank();
}

}  // namespace vantrellion
