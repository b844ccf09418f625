#include "boardio/BoardSet.h"

#include "boardio/drivers/Drivers.h"
#include "core/FatalError.h"
#include "core/SharedState.h"
#include "logging/EventLog.h"

namespace vantrellion {

namespace {

BoardAddresses AddressesOf(const BoardRecord& b) {
    return {b.BaseAddress, b.InputAddress, b.CntlAddress, b.PortConfigValue};
}

std::string BoardName(int board) {
    return "Board " + std::to_string(board + 1);
}

}  // namespace

// One board of the set. A kept-open board is reached through the slot itself, which stands
// in front of the driver's link: it holds the wanted outputs, writes them at the tick's read,
// and keeps the board's contact state.
struct BoardSet::Slot : BoardLink {
    int board = 0;
    std::string text;  // as stored; "" when missing
    std::string problem;
    BoardConnection connection;
    const BoardDriver* driver = &PortsBoardDriver;

    System* s = nullptr;  // set at every Link
    std::unique_ptr<BoardLink> link;
    bool noContact = false;   // it stopped answering; logged
    bool tried = false;       // an attempt to open has been made
    int64_t lastAttempt = 0;  // monotonic milliseconds of the last attempt to open
    bool haveWanted = false;  // the schedule has written the outputs
    uint8_t wanted = 0;       // the outputs the schedule wants
    bool dirty = false;       // wanted differs from what the board was last seen to hold
    bool rewrite = false;     // write wanted at the next read, whatever the board holds
    uint8_t seen = 0;         // the outputs last read from the board
    uint8_t inputs = 0;       // the inputs last read
    bool hasInputs = true;

    // The board stopped answering: it is let go, and the next attempt comes no sooner than
    // BoardRetryMs from now.
    void Fail(const std::string& error) {
        if (link) link->Close();
        link.reset();
        tried = true;
        lastAttempt = s->clock().MonotonicMs();
        if (!noContact) {
            noContact = true;
            WriteEventLog(*s, BoardName(board) + " no contact:", connection.text + ": " + error);
        }
    }

    // Opens the board when it is not open and an attempt is due; false while there is no
    // contact.
    bool Ensure() {
        if (link) return true;
        const int64_t now = s->clock().MonotonicMs();
        if (tried && now - lastAttempt < BoardRetryMs) return false;
        tried = true;
        lastAttempt = now;
        BoardOpening o;
        o.system = s;
        o.board = board;
        o.addresses = AddressesOf(s->modRelay.Board[board]);
        o.wantedOutputs = wanted;
        std::string error;
        link = driver->open(connection, o, error);
        if (!link) {
            Fail(error.empty() ? "cannot be opened" : error);
            return false;
        }
        hasInputs = link->HasInputs();
        if (haveWanted) {
            rewrite = true;
        } else {
            const BoardIo r = link->ReadOutputs();
            if (!r.ok) {
                Fail(r.error);
                return false;
            }
            seen = wanted = r.value;
        }
        return true;
    }

    BoardIo WriteOutputs(uint8_t bits) override {
        haveWanted = true;
        wanted = bits;
        dirty = bits != seen;
        return {};
    }
    BoardIo ReadForChange() override { return BoardIo::Value(wanted); }
    // The tick's read: what is to be written goes out first, then the board is read. A
    // change made at the board by anything else is taken as the board's state, as with ports.
    // Without contact the wanted outputs stand in for the board's.
    BoardIo ReadOutputs() override {
        if (!Ensure()) return BoardIo::Value(wanted);
        if (dirty || rewrite) {
            const BoardIo w = link->WriteOutputs(wanted);
            if (!w.ok) {
                Fail(w.error);
                return BoardIo::Value(wanted);
            }
            dirty = rewrite = false;
            seen = wanted;
        }
        const BoardIo r = link->ReadOutputs();
        if (!r.ok) {
            Fail(r.error);
            return BoardIo::Value(wanted);
        }
        seen = wanted = r.value;
        // A board counts as back once it has answered, not when a connection is taken.
        if (noContact) {
            noContact = false;
            WriteEventLog(*s, BoardName(board) + " reconnected:", connection.text);
        }
        return r;
    }
    BoardIo ReadInputs() override {
        if (!link) return BoardIo::Value(inputs);
        const BoardIo r = link->ReadInputs();
        if (!r.ok) {
            Fail(r.error);
            return BoardIo::Value(inputs);
        }
        inputs = r.value;
        return r;
    }
    bool HasInputs() const override { return hasInputs; }
    void ClearAtExit() override {
        WriteOutputs(0);
        Flush();
    }
    void Flush() {
        if ((dirty || rewrite) && link) {
            const BoardIo w = link->WriteOutputs(wanted);
            if (w.ok) dirty = rewrite = false;
        }
    }
    void Close() override {
        Flush();
        if (link) link->Close();
        link.reset();
    }
};

BoardSet::BoardSet() {
    for (int b = 0; b < BoardSlots; ++b) {
        slots_[b] = std::make_unique<Slot>();
        slots_[b]->board = b;
    }
}

BoardSet::~BoardSet() {
    CloseAll();
}

std::string BoardSet::SetConnection(int board, const std::string& text) {
    slots_.at(board)->Close();
    slots_[board] = std::make_unique<Slot>();
    Slot& slot = *slots_[board];
    slot.board = board;
    slot.text = text;
    if (text.empty()) return "";
    slot.problem = CheckBoardConnection(text);
    if (!slot.problem.empty()) {
        slot.driver = &EmulatedBoardDriver;
        return slot.problem;
    }
    std::string error;
    slot.connection = ParseBoardConnection(text, error);
    slot.driver = FindBoardDriver(slot.connection.scheme);
    return "";
}

const std::string& BoardSet::Connection(int board) const {
    return slots_.at(board)->text;
}

std::string BoardSet::EffectiveConnection(const System& s, int board) const {
    const Slot& slot = *slots_.at(board);
    if (!slot.text.empty()) return slot.text;
    return "ports://" + std::to_string(s.modRelay.Board[board].BaseAddress);
}

const std::string& BoardSet::Problem(int board) const {
    return slots_.at(board)->problem;
}

BoardLink& BoardSet::Link(System& s, int board, const BoardAddresses& a,
                          std::unique_ptr<BoardLink>& transient) {
    Slot& slot = *slots_.at(board);
    const BoardDriver* driver = s.modRelay.RunNoBoards != 0 ? &EmulatedBoardDriver : slot.driver;
    if (driver->addressed) {
        BoardOpening o;
        o.system = &s;
        o.board = board;
        o.addresses = a;
        std::string error;
        transient =
            driver->open(slot.problem.empty() ? slot.connection : BoardConnection{}, o, error);
        return *transient;
    }
    slot.s = &s;
    return slot;
}

bool BoardSet::NoContact(int board) const {
    const Slot& slot = *slots_.at(board);
    return !slot.driver->addressed && slot.noContact;
}

std::string BoardSet::Status(const System& s, int board) const {
    const Slot& slot = *slots_.at(board);
    if (s.modRelay.RunNoBoards != 0) return "";
    if (!slot.problem.empty()) return "emulated: connection text not valid";
    if (NoContact(board)) return "no contact";
    return "";
}

bool BoardSet::Driven(const System& s, int board) const {
    const Slot& slot = *slots_.at(board);
    if (s.modRelay.RunNoBoards != 0 || !slot.problem.empty()) return false;
    if (slot.driver == &EmulatedBoardDriver) return false;
    if (slot.driver->addressed) return !s.platform.ports || s.platform.ports->Reachable();
    return !slot.noContact;
}

bool BoardSet::HasInputs(const System& s, int board) const {
    const Slot& slot = *slots_.at(board);
    if (s.modRelay.RunNoBoards != 0 || slot.driver->addressed) return true;
    return slot.hasInputs;
}

void BoardSet::CloseAll() {
    for (auto& slot : slots_)
        if (slot) slot->Close();
}

BoardLink& BoardLinkFor(System& s, int board, const BoardAddresses& a,
                        std::unique_ptr<BoardLink>& transient) {
    if (board < 0 || board >= BoardSlots) throw FatalError(ErrSubscript, "Subscript out of range");
    if (s.platform.boards) return s.platform.boards->Link(s, board, a, transient);
    const BoardDriver& d = s.modRelay.RunNoBoards != 0 ? EmulatedBoardDriver : PortsBoardDriver;
    BoardOpening o;
    o.system = &s;
    o.board = board;
    o.addresses = a;
    std::string error;
    transient = d.open(BoardConnection{}, o, error);
    return *transient;
}

}  // namespace vantrellion
