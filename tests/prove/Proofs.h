#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace orrelo::prove {

/// Each proof prints its lines and returns whether all were good. `program` is this program's own file.

/// Kills a host at random moments, in four states of service and store.
bool proveKills(const std::string& program, int kills);
/// Runs several processes of one host and kills them at random moments.
bool proveProcesses(const std::string& program, std::chrono::seconds duration);
/// Fails each system call of a scripted day once.
bool proveFaults(int every);
/// Cuts the power during a scripted day.
bool provePowerCuts(int cuts);
/// Runs a day of `events` events in virtual time.
bool proveDay(int events);

/// The host of the kills and of the processes. Reports events until it is killed, or only lets the kit settle
/// if `prefix` is empty. Words: <data folder> <service URL> <certificate file> <prefix> <pause in µs>
int runHost(const std::vector<std::string>& words);

}  // namespace orrelo::prove
