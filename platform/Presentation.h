#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Weak.h"

namespace platform {

/// Told what the user has picked. Held weakly.
class DocumentPickerDelegate {
 public:
  virtual ~DocumentPickerDelegate() = default;
  /// Paths of files; never called without one.
  virtual void documentPickerDidPick(const std::vector<std::string>& paths) = 0;
};

/// Lets the user choose files to import; shown over the full screen.
struct DocumentPicker {
  /// Uniform type identifiers, such as "com.example.synth.preset".
  std::vector<std::string> types;
  bool allowsMultipleSelection = false;
  Weak<DocumentPickerDelegate> delegate;
};

/// Offers files to other programs.
struct ActivitySheet {
  struct Popover {
    /// In the window's coordinates, without an arrow towards it.
    Rect sourceRect;
    Size contentSize;
  };

  std::vector<std::string> paths;
  /// Not on a phone, where the sheet takes the screen.
  std::optional<Popover> popover;
};

/// One message with one button that closes it.
struct Alert {
  std::string title;
  std::string message;
  std::string button;
};

/// What a program shows above the editor on its behalf. User-interface thread.
class Presentation {
 public:
  enum class Idiom { phone, pad, desktop };

  virtual ~Presentation() = default;

  virtual Idiom userInterfaceIdiom() const { return Idiom::phone; }
  virtual void present(const DocumentPicker& picker) = 0;
  virtual void present(const ActivitySheet& sheet) = 0;
  virtual void present(const Alert& alert) = 0;
};

}  // namespace platform
