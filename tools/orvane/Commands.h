#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tool {

/// What a command reads and writes.
struct Streams {
  std::istream& in;
  std::ostream& out;
};

/// The words after the command's name.
using Words = std::vector<std::string>;

// Each returns the exit code, or throws a UsageError or a Failure.
int listCommand(const Words& words, Streams streams);
int runCommand(const Words& words, Streams streams);
int snapshotCommand(const Words& words, Streams streams);
int treeCommand(const Words& words, Streams streams);
int driveCommand(const Words& words, Streams streams);
int presetsCommand(const Words& words, Streams streams);
int checkCommand(const Words& words, Streams streams);

}  // namespace tool
