#include "backends/juce/OpenLink.h"

#include <algorithm>
#include <array>
#include <string_view>

#if defined(__linux__)
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#else
#include <juce_core/juce_core.h>
#endif

namespace juce_backend {

namespace {

bool leadsToPageOrLetter(std::string_view url) {
  constexpr std::array<std::string_view, 3> starts{"http://", "https://", "mailto:"};
  return std::any_of(starts.begin(), starts.end(),
                     [&](std::string_view start) { return url.starts_with(start); });
}

}  // namespace

bool openLink(const std::string& url) {
  if (!leadsToPageOrLetter(url)) return false;
#if defined(__linux__)
  // JUCE would have a shell read the link, which may come from a server. Here it is an argument, and
  // the shell only lets go of the program at once.
  const char* const script =
      "command -v xdg-open >/dev/null || exit 1; xdg-open \"$1\" >/dev/null 2>&1 &";
  const char* const arguments[] = {"sh", "-c", script, "sh", url.c_str(), nullptr};
  pid_t shell = 0;
  if (::posix_spawn(&shell, "/bin/sh", nullptr, nullptr, const_cast<char* const*>(arguments),
                    ::environ) != 0)
    return false;
  int status = 0;
  // A host may collect its children itself.
  return ::waitpid(shell, &status, 0) != shell || status == 0;
#else
  return juce::URL::createWithoutParsing(juce::String::fromUTF8(url.c_str()))
      .launchInDefaultBrowser();
#endif
}

}  // namespace juce_backend
