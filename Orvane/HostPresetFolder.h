#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/FileManager.h"

namespace orvane {

/// Copies of the user's presets in the form that a host lists in its own browser, in the folder where it
/// looks. The user's files stay what they are: a copy is made when its preset is new or has changed,
/// and goes when that goes. The folder may hold what others have put there, which is never touched; what
/// was written here stands in a list beside it. Any thread, one at a time.
class HostPresetFolder {
 public:
  struct Source {
    std::string name;
    /// Of the preset's file.
    std::string path;
  };
  /// A copy in the folder.
  struct Copy {
    /// As the user has given it; two presets in two folders may have one name.
    std::string name;
    std::string file;
  };
  struct Form {
    /// Of the copies, with the dot.
    std::string extension;
    /// What a copy of the preset holds, whose state dictionary is given; none when there cannot be one.
    std::function<std::optional<std::string>(const Copy& copy, const platform::PropertyList& state)>
        contents;
    /// The file that hosts read first and what it says of the copies; without a name there is none.
    std::string indexFile{};
    std::function<std::string(const std::vector<Copy>& copies)> index{};
  };

  HostPresetFolder(platform::FileManager& files, std::string folder, Form form);

  /// Makes the folder show these presets. Without any there is no folder, unless others use it. A
  /// sentence when something could not be written; the next update tries again.
  std::optional<std::string> update(const std::vector<Source>& presets);

 private:
  /// What a copy was made of, by its file; empty while it is being made.
  using Stamps = std::map<std::string, std::string>;

  std::string pathOf(const std::string& file) const { return folder_ + '/' + file; }
  Stamps readStamps() const;
  std::optional<std::string> writeStamps(const Stamps& stamps);
  std::optional<std::string> stampOf(const std::string& path) const;
  std::optional<std::string> copyOf(const Source& source, const Copy& copy) const;
  std::string freeFile(const std::string& name, const Stamps& ours,
                       const std::set<std::string>& taken) const;
  std::optional<std::string> write(const std::string& text, const std::string& file);
  void removeFolderOfOurs();

  platform::FileManager& files_;
  const std::string folder_;
  const Form form_;
};

}  // namespace orvane
