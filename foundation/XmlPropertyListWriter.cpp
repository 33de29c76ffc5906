// The part of the XML form that writes.

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>

#include "foundation/UnicodeText.h"
#include "foundation/XmlPropertyList.h"

namespace foundation {

using platform::PropertyList;

namespace {

/// Base64 fills lines up to this width, tabs counted as eight.
constexpr std::size_t lineWidth = 76;
constexpr std::size_t mostTabsCounted = 8;

struct Writer {
  std::string& out;
  std::size_t depth = 0;

  void tabs() const { out.append(depth, '\t'); }
  void escaped(const std::string& raw) const {
    for (const char c : xmlText(raw)) switch (c) {
        case '&':
          out += "&amp;";
          break;
        case '<':
          out += "&lt;";
          break;
        case '>':
          out += "&gt;";
          break;
        case '\r':
          // A reader would take it for the end of a line.
          out += "&#13;";
          break;
        default:
          out += c;
      }
  }
  void simple(std::string_view element, std::string_view text) const {
    tabs();
    out.append("<").append(element).append(">").append(text);
    out.append("</").append(element).append(">\n");
  }
  template <class... How>
  static std::string number(How... valueAndForm) {
    std::array<char, 40> text{};
    const auto [end, problem] =
        std::to_chars(text.data(), text.data() + text.size(), valueAndForm...);
    return std::string(text.data(), end);
  }
  /// The shortest text that reads back as the same value.
  static std::string real(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value > 0 ? "+infinity" : "-infinity";
    const double size = std::fabs(value);
    const bool isPlain = size == 0 || (size >= 1e-5 && size < 1e15);
    return isPlain ? number(value, std::chars_format::fixed) : number(value);
  }

  void operator()(std::monostate) const {}
  void operator()(bool value) const {
    tabs();
    out += value ? "<true/>\n" : "<false/>\n";
  }
  void operator()(std::int64_t value) const { simple("integer", number(value)); }
  void operator()(double value) const { simple("real", real(value)); }
  void operator()(const std::string& value) const { text("string", value); }
  void text(std::string_view element, const std::string& raw) const {
    tabs();
    out.append("<").append(element).append(">");
    escaped(raw);
    out.append("</").append(element).append(">\n");
  }
  void operator()(const PropertyList::Data& value) const {
    const std::size_t width = (lineWidth - 8 * std::min(depth, mostTabsCounted)) / 4 * 3;
    tabs();
    out += "<data>\n";
    for (std::size_t at = 0; at < value.size(); at += width) {
      tabs();
      base64(std::span(value).subspan(at, std::min(width, value.size() - at)));
      out += '\n';
    }
    tabs();
    out += "</data>\n";
  }
  void base64(std::span<const std::uint8_t> bytes) const {
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
      const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
      std::uint32_t bits = 0;
      for (std::size_t i = 0; i < 3; ++i) bits = bits << 8 | (i < count ? bytes[at + i] : 0u);
      for (std::size_t i = 0; i < 4; ++i)
        out += i <= count ? base64Digits[bits >> (18 - 6 * i) & 63] : '=';
    }
  }
  void operator()(const PropertyList::Date& value) const {
    // The years that have four digits; a NaN becomes the first.
    constexpr double earliest = -62135596800.0, latest = 253402300799.0;
    const double since1970 = value.seconds + secondsTo2001;
    const double seconds = since1970 > earliest ? std::min(since1970, latest) : earliest;
    const auto whole = static_cast<std::int64_t>(std::floor(seconds));
    const std::chrono::sys_seconds time{std::chrono::seconds(whole)};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const auto since = (time - day).count();
    const auto digits = [](std::int64_t part, std::size_t count) {
      const std::string plain = std::to_string(part);
      return std::string(count - std::min(count, plain.size()), '0') + plain;
    };
    simple("date", digits(int{date.year()}, 4) + '-' + digits(unsigned{date.month()}, 2) + '-' +
                       digits(unsigned{date.day()}, 2) + 'T' + digits(since / 3600, 2) + ':' +
                       digits(since / 60 % 60, 2) + ':' + digits(since % 60, 2) + 'Z');
  }
  template <class Items, class Write>
  void collection(std::string_view element, const Items& items, const Write& write) {
    tabs();
    if (items.empty()) {
      out.append("<").append(element).append("/>\n");
      return;
    }
    out.append("<").append(element).append(">\n");
    ++depth;
    for (const auto& item : items) write(item);
    --depth;
    tabs();
    out.append("</").append(element).append(">\n");
  }
  void operator()(const PropertyList::Array& value) {
    collection("array", value,
               [this](const PropertyList& item) { std::visit(*this, item.value()); });
  }
  void operator()(const PropertyList::Dictionary& value) {
    collection("dict", value, [this](const auto& entry) {
      if (entry.second.isNull()) return;
      text("key", entry.first);
      std::visit(*this, entry.second.value());
    });
  }
};

}  // namespace

std::string xmlPropertyListText(const PropertyList& list) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
      "<plist version=\"1.0\">\n";
  Writer writer{text};
  std::visit(writer, list.value());
  return text + "</plist>\n";
}

}  // namespace foundation
