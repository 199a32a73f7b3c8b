#include "playback/libvlc_video_output.h"

#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include "playback/libvlc_picture_format.h"

namespace vantor {

namespace {

constexpr unsigned longestSide = 16'384;
constexpr unsigned mostPixels = 8'192 * 4'608;

// Pictures after which a media that has not told the shape of its pixels never will.
constexpr int patience = 10;

constexpr unsigned roundUp(unsigned value, unsigned unit) {
  return (value + unit - 1) / unit * unit;
}

bool isTooLarge(unsigned width, unsigned height) {
  return width == 0 || height == 0 || width > longestSide || height > longestSide ||
         width * height > mostPixels;
}

/// A format of decoders' pictures, and the one to ask for so that as little as can be is converted.
struct Asked {
  const char* decoded;
  const char* asked;
  PictureLayout layout;
  PictureDecoder decoder = PictureDecoder::software;
};

constexpr Asked usual{"I420", "I420", PictureLayout::planar};
constexpr std::array askedFormats{
    Asked{"J420", "J420", PictureLayout::planar},  // of full range
    Asked{"NV12", "NV12", PictureLayout::interleaved},
    Asked{"I0AL", "I0AL", PictureLayout::deepPlanar},
    Asked{"P010", "P010", PictureLayout::deepInterleaved},
    // Those in the memory of a graphics card.
    Asked{"VAOP", "NV12", PictureLayout::interleaved, PictureDecoder::vaapi},
    Asked{"VAO0", "P010", PictureLayout::deepInterleaved, PictureDecoder::vaapi},
    Asked{"VAO0", "I420", PictureLayout::planar, PictureDecoder::vaapi},
    Asked{"VDV0", "NV12", PictureLayout::interleaved, PictureDecoder::vdpau},
};

Asked askedFor(const char* decoded, bool deepSamples) {
  for (const Asked& row : askedFormats) {
    if (std::memcmp(row.decoded, decoded, 4) == 0 && (deepSamples || !isDeep(row.layout)))
      return row;
  }
  return usual;
}

}  // namespace

/// Picture memory of one format, used again when nobody holds it any more.
class LibVLCVideoOutput::Buffers : public std::enable_shared_from_this<Buffers> {
 public:
  Buffers(const PictureFormat& pictures, PictureLayout inMemory,
          std::shared_ptr<const ToneTable> mapping)
      : format(pictures),
        layout(inMemory),
        tones(std::move(mapping)),
        pitch(roundUp(static_cast<unsigned>(pictures.size.width()) * (isDeep(layout) ? 2 : 1), 64)),
        lines(roundUp(static_cast<unsigned>(pictures.size.height()), 32)) {}

  std::shared_ptr<VideoFrame> take() {
    const std::shared_ptr<std::uint8_t> memory = takeMemory();
    auto frame = std::make_shared<VideoFrame>();
    frame->layout = layout;
    layOut(*frame, memory.get(), format.size, static_cast<int>(pitch), static_cast<int>(lines));
    frame->matrix = format.matrix;
    frame->range = format.range;
    frame->tones = tones;
    frame->memory = memory;
    return frame;
  }

  const PictureFormat format;
  const PictureLayout layout;
  const std::shared_ptr<const ToneTable> tones;
  const unsigned pitch;  // of luma
  const unsigned lines;

 private:
  std::shared_ptr<std::uint8_t> takeMemory() {
    std::unique_ptr<std::uint8_t[]> memory;
    {
      const std::lock_guard lock(mutex_);
      if (!free_.empty()) {
        memory = std::move(free_.back());
        free_.pop_back();
      }
    }
    if (!memory) memory = std::make_unique<std::uint8_t[]>(std::size_t{pitch} * lines * 3 / 2);
    return {memory.release(), [self = shared_from_this()](std::uint8_t* bytes) {
              const std::lock_guard lock(self->mutex_);
              self->free_.emplace_back(bytes);
            }};
  }

  std::mutex mutex_;
  std::vector<std::unique_ptr<std::uint8_t[]>> free_;
};

LibVLCVideoOutput::LibVLCVideoOutput(std::shared_ptr<VideoFrameQueue> frames,
                                     LibVLCInternals internals, std::function<void()> onNews)
    : frames_(std::move(frames)), internals_(internals), onNews_(std::move(onNews)) {}

void LibVLCVideoOutput::attach(libvlc_media_player_t* player) {
  libvlc_video_set_format_callbacks(player, setUp, cleanUp);
  libvlc_video_set_callbacks(player, lock, nullptr, display, this);
}

void LibVLCVideoOutput::beginSource(SourceNumber source) {
  const std::lock_guard guard(mutex_);
  source_ = source;
  passedOn_ = 0;
  received_ = 0;
  waiting_.reset();
  pixelAspect_ = 0;
}

void LibVLCVideoOutput::setPixelAspect(std::optional<double> widthByHeight) {
  const std::lock_guard guard(mutex_);
  if (!widthByHeight && received_ < patience) return;
  pixelAspect_ = widthByHeight.value_or(1);
  if (waiting_) present(std::exchange(waiting_, nullptr));
}

bool LibVLCVideoOutput::isWaiting() const {
  const std::lock_guard guard(mutex_);
  return waiting_ != nullptr;
}

PictureFacts LibVLCVideoOutput::facts() const {
  const std::lock_guard guard(mutex_);
  if (!buffers_) return {};
  return {.decoder = decoder_,
          .size = buffers_->format.size,
          .bits = isDeep(buffers_->layout) ? 10 : 8,
          .shown = pictures()};
}

unsigned LibVLCVideoOutput::setUp(void** opaque, char* chroma, unsigned* width, unsigned* height,
                                  unsigned* pitches, unsigned* lines) {
  auto* self = static_cast<LibVLCVideoOutput*>(*opaque);
  if (isTooLarge(*width, *height)) return 0;
  PictureFormat format = usualFormat(chroma, *width, *height);
  if (self->internals_ == LibVLCInternals::used)
    if (const auto known = pictureFormat(chroma, width, height)) format = *known;
  const Asked asked = askedFor(chroma, self->frames_->showsDeepSamples());
  std::memcpy(chroma, asked.asked, 4);

  const auto buffers =
      std::make_shared<Buffers>(format, asked.layout, self->tonesFor(format.light));
  *width = static_cast<unsigned>(format.size.width());
  *height = static_cast<unsigned>(format.size.height());
  pitches[0] = buffers->pitch;
  lines[0] = buffers->lines;
  pitches[1] = pitches[2] = isInterleaved(asked.layout) ? buffers->pitch : buffers->pitch / 2;
  lines[1] = lines[2] = buffers->lines / 2;
  const std::lock_guard guard(self->mutex_);
  self->buffers_ = buffers;
  self->decoder_ = asked.decoder;
  self->reshaped_ = true;
  if (self->pixelAspect_ == 0) self->pixelAspect_ = format.pixelAspect;
  return 1;
}

std::shared_ptr<const ToneTable> LibVLCVideoOutput::tonesFor(const PictureLight& light) {
  if (isStandard(light)) return {};
  // The library asks several times until a decoder has opened.
  if (!tones_ || light != light_) tones_ = std::make_shared<const ToneTable>(light);
  light_ = light;
  return tones_;
}

void LibVLCVideoOutput::cleanUp(void* opaque) {
  auto* self = static_cast<LibVLCVideoOutput*>(opaque);
  const std::lock_guard guard(self->mutex_);
  self->writing_.reset();
  self->buffers_.reset();
}

void* LibVLCVideoOutput::lock(void* opaque, void** planes) {
  auto* self = static_cast<LibVLCVideoOutput*>(opaque);
  const std::lock_guard guard(self->mutex_);
  self->writing_ = self->buffers_->take();
  for (std::size_t i = 0; i < planesOf(self->writing_->layout); ++i)
    planes[i] = const_cast<std::uint8_t*>(self->writing_->planes[i].data);
  return nullptr;
}

void LibVLCVideoOutput::display(void* opaque, void*) {
  auto* self = static_cast<LibVLCVideoOutput*>(opaque);
  {
    const std::lock_guard guard(self->mutex_);
    if (!self->writing_) return;
    const bool isNews = self->passedOn_ == 0 || std::exchange(self->reshaped_, false);
    if (self->pixelAspect_ > 0) {
      self->present(std::exchange(self->writing_, nullptr));
    } else {
      self->waiting_ = std::exchange(self->writing_, nullptr);
      ++self->received_;
    }
    if (!isNews) return;
  }
  self->onNews_();
}

void LibVLCVideoOutput::present(std::shared_ptr<VideoFrame> frame) {
  frame->source = source_;
  frame->pixelAspect = pixelAspect_;
  frames_->present(std::move(frame));
  ++passedOn_;
}

}  // namespace vantor
