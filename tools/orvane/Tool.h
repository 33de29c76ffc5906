#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tool {

/// The whole `orvane` tool but for the process around it: runs the command that the arguments name
/// and returns the exit code. 0: done; 1: failed, with one line that names file and place on
/// `err`, or every problem of `check` on `out`; 2: the arguments make no sense, one line on `err`.
int runTool(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
            std::ostream& err);

}  // namespace tool
