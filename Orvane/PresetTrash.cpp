#include "Orvane/PresetTrash.h"

#include <cstdio>
#include <utility>

#include "platform/FilePath.h"

namespace orvane {

using platform::FileError;
using platform::FileManager;

namespace {

/// Names of one time.
constexpr int maxPlaces = 1000;

std::string nameOf(PresetTrash::Clock::time_point time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(std::chrono::floor<std::chrono::seconds>(time - day));
  char name[64];
  std::snprintf(name, sizeof name, "%04d-%02u-%02u %02d.%02d.%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return name;
}

/// None for a folder that somebody else has put there.
std::optional<PresetTrash::Clock::time_point> timeOf(const std::string& name) {
  int year = 0, hour = 0, minute = 0, second = 0;
  unsigned month = 0, day = 0;
  if (std::sscanf(name.c_str(), "%d-%u-%u %d.%d.%d", &year, &month, &day, &hour, &minute,
                  &second) != 6)
    return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                         std::chrono::day(day)};
  if (!date.ok()) return std::nullopt;
  const PresetTrash::Clock::time_point time =
      std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
      std::chrono::seconds(second);
  const std::string exact = nameOf(time);
  if (!name.starts_with(exact)) return std::nullopt;
  // The second of one time has a number behind it.
  const bool isOurs = name.size() == exact.size() ||
                      (name[exact.size()] == ' ' && name.size() > exact.size() + 1 &&
                       name.find_first_not_of("0123456789", exact.size() + 1) == name.npos);
  return isOurs ? std::optional(time) : std::nullopt;
}

}  // namespace

PresetTrash::PresetTrash(FileManager& files, std::string folder)
    : files_(files), folder_(std::move(folder)) {}

std::optional<std::string> PresetTrash::makePlace(FileError& error, Clock::time_point now) {
  if (!files_.isDirectory(folder_)) {
    const auto failed = files_.createDirectory(folder_, FileManager::Intermediates::mustExist);
    if (failed && failed->code != FileError::Code::fileExists) {
      error = *failed;
      return std::nullopt;
    }
  }
  const std::string base = folder_ + '/' + nameOf(now);
  for (int number = 1;; ++number) {
    std::string place = number == 1 ? base : base + ' ' + std::to_string(number);
    const auto failed = files_.createDirectory(place, FileManager::Intermediates::mustExist);
    if (!failed) return place;
    if (failed->code == FileError::Code::fileExists && number < maxPlaces) continue;
    error = *failed;
    return std::nullopt;
  }
}

std::optional<std::string> PresetTrash::take(const std::string& path, FileError& error,
                                             Clock::time_point now) {
  const auto place = makePlace(error, now);
  if (!place) return std::nullopt;
  std::string kept = *place + '/' + platform::lastPathComponent(path);
  if (const auto failed = files_.moveItem(path, kept)) {
    error = *failed;
    forget(kept);
    return std::nullopt;
  }
  return kept;
}

std::optional<std::string> PresetTrash::keep(std::span<const std::uint8_t> bytes,
                                             const std::string& name, FileError& error,
                                             Clock::time_point now) {
  const auto place = makePlace(error, now);
  if (!place) return std::nullopt;
  std::string kept = *place + '/' + name;
  if (const auto failed = files_.write(bytes, kept)) {
    error = *failed;
    forget(kept);
    return std::nullopt;
  }
  return kept;
}

void PresetTrash::forget(const std::string& kept) {
  const std::string place = kept.substr(0, kept.rfind('/'));
  if (timeOf(platform::lastPathComponent(place))) static_cast<void>(files_.removeItem(place));
}

void PresetTrash::removeOld(Clock::time_point now) {
  const auto places = files_.contentsOfDirectory(folder_);
  if (!places) return;
  for (const auto& place : *places)
    if (const auto time = timeOf(place.name); place.isDirectory && time && *time + keptFor < now)
      static_cast<void>(files_.removeItem(folder_ + '/' + place.name));
}

std::vector<PresetTrash::Entry> PresetTrash::entries() const {
  std::vector<Entry> found;
  const auto places = files_.contentsOfDirectory(folder_);
  if (!places) return found;
  for (const auto& place : *places) {
    const auto time = timeOf(place.name);
    const std::string path = folder_ + '/' + place.name;
    const auto inside = place.isDirectory && time ? files_.contentsOfDirectory(path) : std::nullopt;
    if (!inside) continue;
    for (const auto& file : *inside) found.push_back({path + '/' + file.name, *time});
  }
  return found;
}

}  // namespace orvane
