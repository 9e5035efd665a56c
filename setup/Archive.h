// The archive of a setup, through a library that shares nothing with the one that wrote it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace setup {

/// What the archive's directory says about a member.
struct Member {
  std::string_view name;   ///< valid as long as the archive
  std::uint64_t size = 0;  ///< bytes when unpacked
  std::uint64_t packedSize = 0;
  std::uint32_t checksum = 0;  ///< CRC-32 of the unpacked bytes
  std::uint32_t index = 0;     ///< position in the directory
  std::uint16_t method = 0;
  bool encrypted = false;
};

/// Takes the next bytes of a file; may raise an error to stop.
using ByteSink = std::function<void(std::string_view)>;

/// Shared by threads: several may search and unpack one archive at the same time, each with an
/// Unpacker of its own.
class Archive {
 public:
  /// Reads the directory and holds it against the members' own headers. Raises tools::Error naming
  /// the file: no zip archive, cut off, contradictory, two members of one name.
  explicit Archive(const std::string& path);
  ~Archive();
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] const std::vector<Member>& Members() const { return members_; }
  /// The member of that name, null when there is none.
  [[nodiscard]] const Member* Find(std::string_view name) const;

 private:
  friend class PackedBytes;
  struct Library;

  void ReadDirectory();
  void IndexNames();

  std::string path_;
  std::vector<Member> members_;
  std::vector<std::uint32_t> byName_;  ///< positions in members_, in order of their names
  std::unique_ptr<Library> handle_;
};

/// Unpacks members, one after the other. Each thread has its own.
class Unpacker {
 public:
  Unpacker();
  ~Unpacker();
  Unpacker(const Unpacker&) = delete;
  Unpacker& operator=(const Unpacker&) = delete;

  /// Gives the member's bytes to `sink`, never more than the directory says. Raises tools::Error
  /// that names archive and member when they are not exactly those of its size and checksum.
  void Unpack(const Archive& archive, const Member& member, const ByteSink& sink);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace setup
