// The ports of the running program: In8255 and Out8255 of the port library, loaded by file
// name at the first port access. When the library or the port space behind it is not
// available, the user is told once, with the cause and the cure, and the program goes on
// without the boards: reads give 0 and writes are dropped. Nothing is said while the program
// runs without boards.
#pragma once

#include <cstdint>
#include <string>

#include "boardio/Port8255.h"
#include "core/Flags.h"
#include "core/Platform.h"

namespace vantrellion {

// The program file, from /proc/self/exe; "" when it cannot be found.
std::string ExecutablePath();
// The folder of the program file, without a trailing "/"; "" when unknown.
std::string ExecutableDirectory();
// "<folder of the program>/libVantrellion.so", where the port library is installed.
std::string DefaultPortLibraryPath();

class LibraryPorts : public Ports {
  public:
    // runNoBoards is watched at every access, so that a switch between emulation and real
    // boards takes effect at once; messages and runNoBoards must outlive this object.
    LibraryPorts(std::string libraryPath, MessageBoxes& messages, const Flag& runNoBoards);
    ~LibraryPorts() override;
    LibraryPorts(const LibraryPorts&) = delete;
    LibraryPorts& operator=(const LibraryPorts&) = delete;

    int16_t In8255(int16_t port) override;
    int16_t Out8255(int16_t port, int16_t value) override;

    // Whether a problem has been found (told or not yet told).
    bool Unavailable() const { return !problem_.empty(); }
    bool Reachable() const override { return !Unavailable(); }

  private:
    void Load();
    void NoteCallError(int error);
    void TellIfDue();

    std::string libraryPath_;
    MessageBoxes& messages_;
    const Flag& runNoBoards_;

    bool loadTried_ = false;
    void* handle_ = nullptr;
    decltype(&::In8255) in_ = nullptr;
    decltype(&::Out8255) out_ = nullptr;

    std::string problem_;  // the message for the first problem found; "" while all is well
    bool told_ = false;
};

}  // namespace vantrellion
