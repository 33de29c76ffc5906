#include <algorithm>
#include <cstring>
#include <ostream>

#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/BuiltIns.h"
#include "tools/orvane/Commands.h"

namespace tool {

int listCommand(const Words& words, Streams streams) {
  const ArgumentParser arguments("list", words, {});
  arguments.finish();
  std::size_t longest = 0;
  for (const BuiltIn& builtIn : builtIns()) longest = std::max(longest, std::strlen(builtIn.name));
  for (const BuiltIn& builtIn : builtIns()) {
    const std::string gap(longest + 2 - std::strlen(builtIn.name), ' ');
    streams.out << builtIn.name << gap << builtIn.entry().description << '\n';
  }
  return 0;
}

}  // namespace tool
