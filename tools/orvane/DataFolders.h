#pragma once

#include <memory>
#include <optional>
#include <string>

#include "foundation/DefaultFileManager.h"
#include "foundation/LocalFileManager.h"
#include "platform/FileManager.h"
#include "tools/orvane/ArgumentParser.h"

namespace tool {

/// The containers that a command works in: what --data and --cloud say, for as long as it lives.
class DataFolders {
 public:
  /// Without --data: the user's own containers, or a new one that is gone with this object.
  enum class WithoutData { usersOwn, temporary };

  /// Throws a Failure when a folder cannot be made.
  DataFolders(const ArgumentParser& arguments, WithoutData without);
  ~DataFolders();
  DataFolders(const DataFolders&) = delete;
  DataFolders& operator=(const DataFolders&) = delete;

  foundation::LocalFileManager& files() { return *files_; }
  /// The container that --data names.
  const std::optional<std::string>& data() const { return data_; }
  /// The cloud container, if there is one.
  const std::optional<std::string>& cloud() const { return cloud_; }

 private:
  std::optional<std::string> data_, cloud_;
  std::string temporary_;
  std::unique_ptr<foundation::LocalFileManager> files_;
  std::optional<foundation::DefaultFileManager> scope_;
};

}  // namespace tool
