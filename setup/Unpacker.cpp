#include <zip.h>
#include <zlib.h>

#include <algorithm>

#include "setup/Archive.h"
#include "setup/ArchiveLibrary.h"
#include "tools/Error.h"

namespace setup {

namespace {

constexpr std::size_t kBufferBytes = std::size_t{64} << 10U;

[[noreturn]] void RaiseDamaged(const Archive& archive, const Member& member,
                               const std::string& reason) {
  throw tools::Error("Das Archiv ist beschädigt: " + archive.Path() + " (" +
                     std::string(member.name) + ": " + reason + ")");
}

}  // namespace

/// A member's bytes as they lie in the archive. The library takes one call at a time.
class PackedBytes {
 public:
  PackedBytes(const Archive& archive, const Member& member) : archive_(archive), member_(member) {
    const std::lock_guard lock(archive.handle_->mutex);
    file_ = zip_fopen_index(archive.handle_->zip, member.index, ZIP_FL_COMPRESSED);
    if (file_ == nullptr) Raise(ZIP_ER_READ);
  }
  ~PackedBytes() {
    const std::lock_guard lock(archive_.handle_->mutex);
    if (file_ != nullptr) zip_fclose(file_);
  }
  PackedBytes(const PackedBytes&) = delete;
  PackedBytes& operator=(const PackedBytes&) = delete;

  /// The next bytes; none at the end.
  std::string_view Next(std::string& buffer) {
    const std::lock_guard lock(archive_.handle_->mutex);
    const zip_int64_t count = zip_fread(file_, buffer.data(), buffer.size());
    // Of a stored member the library checks the checksum itself.
    if (count < 0) Raise(zip_error_code_zip(zip_file_get_error(file_)));
    return std::string_view(buffer).substr(0, static_cast<std::size_t>(count));
  }

 private:
  [[noreturn]] void Raise(int error) const {
    archive_.handle_->file.RaiseFailure();
    RaiseDamaged(archive_, member_,
                 error == ZIP_ER_CRC ? "Prüfsumme stimmt nicht" : "Daten nicht lesbar");
  }

  const Archive& archive_;
  const Member& member_;
  zip_file_t* file_ = nullptr;
};

struct Unpacker::State {
  State() : packed(kBufferBytes, '\0'), plain(kBufferBytes, '\0') {
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) throw std::bad_alloc();
  }
  ~State() { inflateEnd(&stream); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  z_stream stream{};
  std::string packed;
  std::string plain;
};

namespace {

/// Counts what is passed on, and holds it against the directory.
class CheckedSink {
 public:
  CheckedSink(const Archive& archive, const Member& member, const ByteSink& sink)
      : archive_(archive), member_(member), sink_(sink) {}

  void Add(std::string_view bytes) {
    if (bytes.size() > member_.size - size_) {
      RaiseDamaged(archive_, member_, "mehr Bytes als im Verzeichnis");
    }
    size_ += bytes.size();
    checksum_ = crc32_z(checksum_, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
    if (!bytes.empty()) sink_(bytes);
  }
  void Finish() const {
    if (size_ != member_.size) {
      RaiseDamaged(archive_, member_, "weniger Bytes als im Verzeichnis");
    }
    if (checksum_ != member_.checksum) {
      RaiseDamaged(archive_, member_, "Prüfsumme stimmt nicht");
    }
  }

 private:
  const Archive& archive_;
  const Member& member_;
  const ByteSink& sink_;
  std::uint64_t size_ = 0;
  uLong checksum_ = crc32_z(0, nullptr, 0);
};

/// Inflates one piece of input; true at the end of the deflate stream.
bool InflatePiece(z_stream& stream, std::string_view packed, std::string& plain,
                  CheckedSink& sink) {
  // zlib does not change its input.
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  int result = Z_OK;
  do {
    stream.next_out = reinterpret_cast<Bytef*>(plain.data());
    stream.avail_out = static_cast<uInt>(plain.size());
    result = inflate(&stream, Z_NO_FLUSH);
    sink.Add(std::string_view(plain).substr(0, plain.size() - stream.avail_out));
  } while (result == Z_OK && (stream.avail_in > 0 || stream.avail_out == 0));
  if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) {
    throw std::domain_error("inflate");
  }
  return result == Z_STREAM_END;
}

}  // namespace

Unpacker::Unpacker() : state_(std::make_unique<State>()) {}

Unpacker::~Unpacker() = default;

void Unpacker::Unpack(const Archive& archive, const Member& member, const ByteSink& sink) {
  if (member.encrypted) RaiseDamaged(archive, member, "verschlüsselt");
  if (member.method != ZIP_CM_STORE && member.method != ZIP_CM_DEFLATE) {
    RaiseDamaged(archive, member, "unbekanntes Packverfahren " + std::to_string(member.method));
  }
  PackedBytes packed(archive, member);
  CheckedSink checked(archive, member, sink);
  bool ended = member.method == ZIP_CM_STORE;
  inflateReset(&state_->stream);
  for (std::string_view piece = packed.Next(state_->packed); !piece.empty();
       piece = packed.Next(state_->packed)) {
    if (member.method == ZIP_CM_STORE) {
      checked.Add(piece);
      continue;
    }
    try {
      if (ended) throw std::domain_error("bytes behind the end");
      ended = InflatePiece(state_->stream, piece, state_->plain, checked);
      if (ended && state_->stream.avail_in > 0) throw std::domain_error("bytes behind the end");
    } catch (const std::domain_error&) {
      RaiseDamaged(archive, member, "gepackte Daten nicht lesbar");
    }
  }
  if (!ended) RaiseDamaged(archive, member, "gepackte Daten enden zu früh");
  checked.Finish();
}

}  // namespace setup
