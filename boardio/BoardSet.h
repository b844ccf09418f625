// The boards of the running program, each reached through its driver. A board's connection
// text comes from the store; a missing one means the port library at the board's configured
// addresses, so that a store from before connection texts drives its boards as it always did.
// RunNoBoards non-zero emulates every board, whatever its connection.
//
// Boards that are opened and kept open (GPIO, USB, serial, Modbus) are watched here: their
// outputs are written once per tick, at the tick's read of the outputs, and only when they
// change or after a reconnect. A board that stops answering is logged once, shown as "no
// contact", tried again at most every 5 seconds and, when it answers, given the outputs that
// the schedule wants at that moment. A failing board never touches the store, the restart
// file or the other boards.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "boardio/BoardDriver.h"
#include "core/Constants.h"

namespace vantrellion {

struct System;

// How long a board that stopped answering is left alone before it is tried again.
inline constexpr int BoardRetryMs = 5000;

class BoardSet {
  public:
    BoardSet();
    ~BoardSet();
    BoardSet(const BoardSet&) = delete;
    BoardSet& operator=(const BoardSet&) = delete;

    // Sets a board's connection text; "" when the store has none. An open board is closed.
    // Returns what is wrong with the text, "" when it is good (or missing).
    std::string SetConnection(int board, const std::string& text);
    // The text as the store holds it, "" when missing.
    const std::string& Connection(int board) const;
    // The text that the board runs by: the stored one, or "ports://<base address>".
    std::string EffectiveConnection(const System& s, int board) const;
    // What is wrong with the board's text; "" when it is good. Such a board runs emulated.
    const std::string& Problem(int board) const;

    // The open board that an operation on these addresses reaches. The port and the emulated
    // drivers are opened for the call, into transient.
    BoardLink& Link(System& s, int board, const BoardAddresses& a,
                    std::unique_ptr<BoardLink>& transient);

    // Whether a kept-open board has lost contact.
    bool NoContact(int board) const;
    // What the status line says of a board beside its bits: "" when all is normal.
    std::string Status(const System& s, int board) const;
    // Whether the board's outputs reach a real board: not emulated, a valid connection text,
    // and a board that answers (for the port drivers, a port space that can be reached).
    bool Driven(const System& s, int board) const;
    // Whether the board has inputs at all (a USB relay card has none).
    bool HasInputs(const System& s, int board) const;

    // Writes what is still to be written and lets go of every kept-open board.
    void CloseAll();

    struct Slot;

  private:
    std::array<std::unique_ptr<Slot>, BoardSlots> slots_;
};

// The open board for an operation: the System's board set when it has one, otherwise the port
// library (or, with RunNoBoards, the emulated board) at the given addresses.
BoardLink& BoardLinkFor(System& s, int board, const BoardAddresses& a,
                        std::unique_ptr<BoardLink>& transient);

}  // namespace vantrellion
