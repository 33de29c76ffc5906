#include "foundation/FileErrors.h"

#include <cerrno>
#include <system_error>

#include "foundation/UnicodeText.h"
#include "platform/FilePath.h"

namespace foundation {

using platform::FileError;

FileError fileError(std::string_view path, std::string_view verb, std::string_view why) {
  std::string name = xmlText(platform::lastPathComponent(path));
  for (char& c : name)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
  return {FileError::Code::other,
          '"' + name + "\" could not be " + std::string(verb) + ": " + std::string(why)};
}

FileError fileError(std::string_view path, std::string_view verb, int errorNumber) {
  FileError error = fileError(path, verb, std::generic_category().message(errorNumber));
  if (errorNumber == EEXIST || errorNumber == ENOTEMPTY) error.code = FileError::Code::fileExists;
  if (errorNumber == ENAMETOOLONG || errorNumber == EINVAL || errorNumber == EILSEQ)
    error.code = FileError::Code::invalidName;
  return error;
}

}  // namespace foundation
