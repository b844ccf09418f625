// The driver tables of the program, and what their option checks share.
#pragma once

#include <initializer_list>
#include <string>

#include "boardio/BoardDriver.h"

namespace vantrellion {

extern const BoardDriver PortsBoardDriver;        // ports://768
extern const BoardDriver EmulatedBoardDriver;     // emulated://
extern const BoardDriver GpioBoardDriver;         // gpio://gpiochip0?out=...&in=...
extern const BoardDriver HidRelayBoardDriver;     // hidrelay:// or hidrelay://SERIAL
extern const BoardDriver SerialRelayBoardDriver;  // serialrelay:///dev/ttyUSB0?relays=8
extern const BoardDriver ModbusTcpBoardDriver;    // modbus-tcp://HOST:PORT?unit=1&coil=0&input=0
extern const BoardDriver ModbusRtuBoardDriver;    // modbus-rtu:///dev/ttyUSB0?baud=9600&unit=1

// "the option \"x\" is not known here (known: a, b)" for the first option not in known; "".
std::string UnknownOption(const BoardConnection& c, std::initializer_list<const char*> known);
// The option's number, or fallback when it is not given; error set when it is not a number
// from lo to hi.
long NumberOption(const BoardConnection& c, const char* name, long fallback, long lo, long hi,
                  std::string& error);

}  // namespace vantrellion
