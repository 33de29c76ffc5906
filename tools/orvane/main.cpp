#include <iostream>
#include <string>
#include <vector>

#include "tools/orvane/Tool.h"

int main(int count, char** arguments) {
  return tool::runTool(std::vector<std::string>(arguments + 1, arguments + count), std::cin,
                       std::cout, std::cerr);
}
