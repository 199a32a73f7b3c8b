#include "sim/packing.h"

#include <brotli/encode.h>
#include <zlib.h>
#include <zstd.h>

#include <memory>
#include <stdexcept>

namespace sim {
namespace {

// Packs pieces so that what one became can be said again.
class Packer {
 public:
  virtual ~Packer() = default;
  virtual std::string add(std::string_view text, bool last) = 0;
};

std::string_view consumed(std::string& room, std::size_t left) {
  return std::string_view(room).substr(0, room.size() - left);
}

class ZlibPacker final : public Packer {
 public:
  explicit ZlibPacker(int windowBits) {
    if (deflateInit2(&stream_, 9, Z_DEFLATED, windowBits, 9, Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::runtime_error("cannot compress");
    }
  }
  ~ZlibPacker() override { deflateEnd(&stream_); }

  std::string add(std::string_view text, bool last) override {
    std::string room(deflateBound(&stream_, text.size()) + 64, '\0');
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream_.avail_in = static_cast<uInt>(text.size());
    stream_.next_out = reinterpret_cast<Bytef*>(room.data());
    stream_.avail_out = static_cast<uInt>(room.size());
    deflate(&stream_, last ? Z_FINISH : Z_FULL_FLUSH);
    return std::string(consumed(room, stream_.avail_out));
  }

 private:
  z_stream stream_{};
};

class BrotliPacker final : public Packer {
 public:
  std::string add(std::string_view text, bool last) override {
    std::string room(BrotliEncoderMaxCompressedSize(text.size()) + 64, '\0');
    auto left = text.size();
    const auto* next = reinterpret_cast<const std::uint8_t*>(text.data());
    auto free = room.size();
    auto* out = reinterpret_cast<std::uint8_t*>(room.data());
    if (BrotliEncoderCompressStream(encoder_.get(),
                                    last ? BROTLI_OPERATION_FINISH : BROTLI_OPERATION_FLUSH, &left,
                                    &next, &free, &out, nullptr) == BROTLI_FALSE) {
      throw std::runtime_error("cannot compress");
    }
    return std::string(consumed(room, free));
  }

 private:
  std::unique_ptr<BrotliEncoderState, decltype(&BrotliEncoderDestroyInstance)> encoder_{
      BrotliEncoderCreateInstance(nullptr, nullptr, nullptr), BrotliEncoderDestroyInstance};
};

// Each piece is a frame.
class ZstdPacker final : public Packer {
 public:
  std::string add(std::string_view text, bool) override {
    std::string room(ZSTD_compressBound(text.size()), '\0');
    ZSTD_inBuffer in{text.data(), text.size(), 0};
    ZSTD_outBuffer out{room.data(), room.size(), 0};
    if (ZSTD_compressStream2(encoder_.get(), &out, &in, ZSTD_e_end) != 0) {
      throw std::runtime_error("cannot compress");
    }
    return room.substr(0, out.pos);
  }

 private:
  std::unique_ptr<ZSTD_CCtx, decltype(&ZSTD_freeCCtx)> encoder_{ZSTD_createCCtx(), ZSTD_freeCCtx};
};

std::unique_ptr<Packer> packer(const std::string& encoding) {
  constexpr int gzipWindow = 16;
  if (encoding == "gzip") return std::make_unique<ZlibPacker>(MAX_WBITS + gzipWindow);
  if (encoding == "deflate") return std::make_unique<ZlibPacker>(MAX_WBITS);
  if (encoding == "br") return std::make_unique<BrotliPacker>();
  if (encoding == "zstd") return std::make_unique<ZstdPacker>();
  throw std::runtime_error("cannot pack as " + encoding);
}

}  // namespace

std::string packed(const std::string& encoding, std::string_view text) {
  return packer(encoding)->add(text, true);
}

std::string bomb(const std::string& encoding) {
  constexpr int pieceCount = 240;
  const std::string piece(16 * 1024 * 1024, ' ');
  const auto packing = packer(encoding);
  auto bytes = packing->add(piece, false);
  const auto again = packing->add(piece, false);
  for (int i = 1; i < pieceCount; ++i) bytes += again;
  return bytes;
}

}  // namespace sim
