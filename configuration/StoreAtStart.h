// The configuration store at start-up, when another program holds it locked: a locked store is
// not a missing configuration, and must never be taken for one.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// How long the first look at the store waits for a lock to go before the user is told, and
// how often the box asks again while it is up.
inline constexpr int StoreFirstWaitMs = 1500;
inline constexpr int StoreRetryIntervalMs = 1000;

// When the store is held by another program, says so in one box that names the file and the
// holder, and asks again every second while the box is up; the box closes by itself, and the
// start goes on, as soon as the store can be read. Retry asks at once; Ignore goes on without
// the store, on the built-in configuration held in memory: the file then gets only the values
// the user changes in this run. False when the user chose Abort and the program is to end.
bool WaitForStoreAtStart(System& s);

// "sqlite3 (process 4711)" for each other process of this machine that has the file (or its
// journal) open, as far as the system lets this user see them; "" when none can be told.
std::string DescribeStoreHolders(const std::string& storeFile);

}  // namespace vantrellion
