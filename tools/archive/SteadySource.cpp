#include "tools/archive/SteadySource.h"

#include <algorithm>
#include <optional>

#include "tools/Error.h"

namespace tools {

template <typename Action>
void SteadySource::Try(const Action& action) {
  try {
    action();
  } catch (const Error& error) {
    cause_ = error.Cause();
  }
}

SteadySource::SteadySource(const std::string& path) {
  Try([&] { file_ = std::make_unique<InputFile>(path); });
}

bool SteadySource::Begin() {
  at_ = 0;
  bool isSteady = false;
  if (!file_) return false;
  Try([&] {
    const std::optional<FileStamp> stamp = file_->SteadyStamp();
    isSteady = stamp.has_value();
    if (stamp) stamp_ = *stamp;
  });
  return isSteady;
}

bool SteadySource::AppendTo(ByteBuffer& content, std::size_t maximumBytes) {
  bool isWhole = false;
  Try([&] {
    // One byte more than there should be: where it does not come, the file ends where its stamp
    // says, as that of nearly every file does.
    const std::size_t count = file_->ReadSome(0, content.Room(stamp_.size + 1));
    isWhole = count == stamp_.size;
    if (isWhole) {
      content.Take(count);
    } else if (const auto bytes = ReadToEnd(*file_, stamp_.size, maximumBytes)) {
      content.Append(*bytes);
      isWhole = true;
    }
  });
  return isWhole;
}

bool SteadySource::AppendNext(ByteBuffer& content, std::size_t bytes) {
  const std::size_t expected = std::min<std::uint64_t>(bytes, stamp_.size - at_);
  std::size_t count = 0;
  Try([&] { count = file_->ReadAt(at_, content.Room(expected)); });
  at_ += count;
  content.Take(count);
  return !cause_ && count == expected;
}

bool SteadySource::IsAtEnd() {
  char byte = 0;
  std::size_t count = 1;
  Try([&] { count = file_->ReadAt(at_, {&byte, 1}); });
  return count == 0;
}

bool SteadySource::IsUnchanged() {
  bool isSame = false;
  Try([&] { isSame = file_->Stamp() == stamp_; });
  return isSame;
}

}  // namespace tools
