#include "net/unpacking.h"

#include <brotli/decode.h>
#include <zlib.h>
#include <zstd.h>

#include <new>

namespace vantor {
namespace {

// What HTTP allows of a compressed body, since it is as much memory: 8 MiB (RFC 9659).
constexpr int largestWindow = 23;  // as a power of 2

class ZlibUnpacking final : public Unpacking {
 public:
  ZlibUnpacking() {
    constexpr int anyHeader = 32;
    if (inflateInit2(&stream_, MAX_WBITS + anyHeader) != Z_OK) throw std::bad_alloc();
  }
  ~ZlibUnpacking() override { inflateEnd(&stream_); }

  qsizetype unpack(QByteArrayView& packed, char* room, qsizetype size) override {
    // Some servers leave the header away and call it deflate all the same.
    if (stream_.total_in == 0 && packed.size() >= 2 && !hasHeader(packed))
      inflateReset2(&stream_, -MAX_WBITS);
    stream_.next_out = reinterpret_cast<Bytef*>(room);
    stream_.avail_out = static_cast<uInt>(size);
    do {
      if (ended_ && !beginAnother(packed)) break;
      stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
      stream_.avail_in = static_cast<uInt>(packed.size());
      const int state = inflate(&stream_, Z_NO_FLUSH);
      packed = packed.last(stream_.avail_in);
      if (state == Z_STREAM_END)
        ended_ = true;
      else if (state != Z_OK && state != Z_BUF_ERROR)
        return -1;
    } while (!packed.isEmpty() && stream_.avail_out > 0);
    return size - stream_.avail_out;
  }
  bool ended() const override { return ended_; }

 private:
  static constexpr char firstOfGzip = '\x1F';

  static bool hasHeader(QByteArrayView bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    const auto second = static_cast<unsigned char>(bytes[1]);
    return bytes[0] == firstOfGzip || (first % 16 == 8 && (first * 256 + second) % 31 == 0);
  }
  // A gzip file may have several parts; what else is behind it is no part of it.
  bool beginAnother(QByteArrayView& packed) {
    if (packed.isEmpty() || packed[0] != firstOfGzip) {
      packed = {};
      return false;
    }
    ended_ = false;
    return inflateReset(&stream_) == Z_OK;
  }

  z_stream stream_ = {};
  bool ended_ = false;
};

class BrotliUnpacking final : public Unpacking {
 public:
  qsizetype unpack(QByteArrayView& packed, char* room, qsizetype size) override {
    auto left = static_cast<std::size_t>(packed.size());
    auto* next = reinterpret_cast<const std::uint8_t*>(packed.data());
    auto free = static_cast<std::size_t>(size);
    auto* out = reinterpret_cast<std::uint8_t*>(room);
    const auto result =
        BrotliDecoderDecompressStream(decoder_.get(), &left, &next, &free, &out, nullptr);
    packed = ended() ? QByteArrayView() : packed.last(static_cast<qsizetype>(left));
    return result == BROTLI_DECODER_RESULT_ERROR ? -1 : size - static_cast<qsizetype>(free);
  }
  bool ended() const override { return BrotliDecoderIsFinished(decoder_.get()) != BROTLI_FALSE; }

 private:
  std::unique_ptr<BrotliDecoderState, decltype(&BrotliDecoderDestroyInstance)> decoder_{
      BrotliDecoderCreateInstance(nullptr, nullptr, nullptr), BrotliDecoderDestroyInstance};
};

class ZstdUnpacking final : public Unpacking {
 public:
  ZstdUnpacking() { ZSTD_DCtx_setParameter(decoder_.get(), ZSTD_d_windowLogMax, largestWindow); }

  qsizetype unpack(QByteArrayView& packed, char* room, qsizetype size) override {
    ZSTD_inBuffer in{packed.data(), static_cast<std::size_t>(packed.size()), 0};
    ZSTD_outBuffer out{room, static_cast<std::size_t>(size), 0};
    do {
      const std::size_t before = in.pos + out.pos;
      const std::size_t wanted = ZSTD_decompressStream(decoder_.get(), &out, &in);
      if (ZSTD_isError(wanted) != 0) return -1;
      // Asked once more after its end, it would wait for another frame.
      if (in.pos + out.pos > before) ended_ = wanted == 0;
    } while (in.pos < in.size && out.pos < out.size);
    packed = packed.sliced(static_cast<qsizetype>(in.pos));
    return static_cast<qsizetype>(out.pos);
  }
  bool ended() const override { return ended_; }

 private:
  std::unique_ptr<ZSTD_DCtx, decltype(&ZSTD_freeDCtx)> decoder_{ZSTD_createDCtx(), ZSTD_freeDCtx};
  bool ended_ = false;
};

}  // namespace

std::unique_ptr<Unpacking> Unpacking::of(const QByteArray& encoding) {
  const QByteArray name = encoding.trimmed().toLower();
  if (name == "gzip" || name == "x-gzip" || name == "deflate")
    return std::make_unique<ZlibUnpacking>();
  if (name == "br") return std::make_unique<BrotliUnpacking>();
  if (name == "zstd") return std::make_unique<ZstdUnpacking>();
  return nullptr;
}

}  // namespace vantor
