// The board driver seam. Every kind of board (the port library, the emulated board, GPIO
// lines, USB HID relay cards, serial relay modules, Modbus modules) is one table of a few
// functions: check a connection text, open a board from it, list the boards of that kind found
// on this machine. An open board (a BoardLink) writes its eight output bits, reads them back,
// reads its inputs and closes. Nothing above this seam knows which kind of board it drives.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrellion {

struct System;

// A connection text taken apart: "scheme://location?name=value&...". The location is a host
// with its port, a device path or a serial number, as the scheme reads it.
struct BoardConnection {
    std::string text;  // as written
    std::string scheme;
    std::string location;
    std::map<std::string, std::string> options;
};

// Takes a connection text apart; "" in error when it is well formed, otherwise what is wrong.
BoardConnection ParseBoardConnection(const std::string& text, std::string& error);

// The addresses of a board on the port bus (the record's four numbers). Only the port and the
// emulated drivers read them.
struct BoardAddresses {
    int16_t base = 0, input = 0, cntl = 0, config = 0;
};

// What a driver is given to open a board.
struct BoardOpening {
    System* system = nullptr;  // the port and emulated drivers work on its ports and bytes
    int board = 0;             // 0 to LastBoard
    BoardAddresses addresses;
    int relays = 8;  // how many of the eight bits are relays on this board
    int inputs = 8;  // how many inputs it has
    uint8_t wantedOutputs =
        0;                // what the schedule wants now, for drivers that set lines up at open
    int timeoutMs = 100;  // no call may take longer than this
};

// The result of one call on a board: the byte read (for a read), or what went wrong.
struct BoardIo {
    bool ok = true;
    uint8_t value = 0;
    std::string error;
    static BoardIo Value(uint8_t v) { return {true, v, {}}; }
    static BoardIo Failed(std::string e) { return {false, 0, std::move(e)}; }
};

// One open board.
class BoardLink {
  public:
    virtual ~BoardLink() = default;
    // Bit r of the byte is relay r, 1 on, whatever the board's own wiring.
    virtual BoardIo WriteOutputs(uint8_t bits) = 0;
    virtual BoardIo ReadOutputs() = 0;
    virtual BoardIo ReadInputs() = 0;
    // The read of a read-modify-write that changes one relay. A board whose outputs are
    // written once per tick answers with what is to be written, without going to the board.
    virtual BoardIo ReadForChange() { return ReadOutputs(); }
    // Lets go of the board; its outputs stay as they were last written.
    virtual void Close() {}
    // Whether the board has an output byte and inputs at all; a board without reads 0.
    virtual bool HasOutputs() const { return true; }
    virtual bool HasInputs() const { return true; }
    // The set-up a board needs before its outputs are used (a control register); repeatable.
    virtual void SetUp() {}
    // The last write at exit, made even where the board's output is otherwise left alone.
    virtual void ClearAtExit() { WriteOutputs(0); }
};

// A board that a driver found on this machine.
struct FoundBoard {
    std::string connection;   // the connection text that opens it
    std::string description;  // what it is, for a person
};

// The table of one kind of board.
struct BoardDriver {
    const char* scheme;
    // True for the drivers that work on the record's port addresses at every call (the port
    // library and the emulated board); the others are opened once and kept open.
    bool addressed;
    // What is wrong with the options of a connection text of this scheme; "" when nothing.
    std::string (*check)(const BoardConnection& c);
    // Opens a board; null with error set when it cannot be reached.
    std::unique_ptr<BoardLink> (*open)(const BoardConnection& c, const BoardOpening& o,
                                       std::string& error);
    // The boards of this kind on this machine.
    std::vector<FoundBoard> (*list)();
};

// Every driver the program has, the port library first.
const std::vector<const BoardDriver*>& BoardDrivers();
// The driver for a scheme, or null.
const BoardDriver* FindBoardDriver(const std::string& scheme);
// Every board that every driver finds.
std::vector<FoundBoard> ListAllBoards();
// The same, one board a line: its connection text, a tab, its description.
std::string BoardListText();

// Checks a whole connection text: form, scheme and options. "" when it is good.
std::string CheckBoardConnection(const std::string& text);

// Helpers for the drivers' option checks.
// A whole decimal number from lo to hi; false when text is not one.
bool ParseWholeNumber(const std::string& text, long lo, long hi, long& value);
// A list of whole numbers, "17,18,27"; false when an item is not one from lo to hi.
bool ParseNumberList(const std::string& text, long lo, long hi, std::vector<long>& values);

}  // namespace vantrellion
