#include "playback/video_material.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "playback/rhi.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

// Layout of the shaders' uniform block, in bytes.
constexpr int matrixSize = 64;
constexpr int colorOffset = matrixSize;
constexpr int opacityOffset = 2 * matrixSize;
constexpr int interleavedOffset = opacityOffset + 4;
constexpr int toneStepsOffset = interleavedOffset + 4;

constexpr int toneBinding = 4;

QRhiTexture::Format formatOf(const VideoPlane& plane) {
  if (plane.bytes == 1) return plane.samples == 1 ? QRhiTexture::R8 : QRhiTexture::RG8;
  return plane.samples == 1 ? QRhiTexture::R16 : QRhiTexture::RG16;
}

class Shader final : public QSGMaterialShader {
 public:
  Shader() {
    setShaderFileName(VertexStage, u":/vantor/playback/shaders/picture.vert.qsb"_s);
    setShaderFileName(FragmentStage, u":/vantor/playback/shaders/picture.frag.qsb"_s);
  }

  bool updateUniformData(RenderState& state, QSGMaterial* material, QSGMaterial* old) override {
    char* values = state.uniformData()->data();
    bool changed = false;
    if (state.isMatrixDirty()) {
      const QMatrix4x4 matrix = state.combinedMatrix();
      std::memcpy(values, matrix.constData(), matrixSize);
      changed = true;
    }
    if (state.isOpacityDirty()) {
      const float opacity = state.opacity();
      std::memcpy(values + opacityOffset, &opacity, sizeof opacity);
      changed = true;
    }
    auto* video = static_cast<VideoMaterial*>(material);
    const float toneSteps = video->tones().isShown() ? ToneTable::stepCount : 0;
    if (material != old || video->toRGB() != toRGB_ || video->layout() != layout_ ||
        toneSteps != toneSteps_) {
      toneSteps_ = toneSteps;
      std::memcpy(values + toneStepsOffset, &toneSteps, sizeof toneSteps);
      toRGB_ = video->toRGB();
      layout_ = video->layout();
      std::memcpy(values + colorOffset, toRGB_.constData(), matrixSize);
      const float interleaved = isInterleaved(layout_) ? 1 : 0;
      std::memcpy(values + interleavedOffset, &interleaved, sizeof interleaved);
      changed = true;
    }
    return changed;
  }

  void updateSampledImage(RenderState& state, int binding, QSGTexture** texture,
                          QSGMaterial* material, QSGMaterial*) override {
    auto* video = static_cast<VideoMaterial*>(material);
    // Something has to be bound, also where the shader does not look.
    const bool tones = binding == toneBinding && video->tones().isShown();
    QSGTexture* bound = &video->texture(binding == toneBinding ? 0 : binding - 1);
    if (tones) bound = &video->tones();
    bound->commitTextureOperations(state.rhi(), state.resourceUpdateBatch());
    *texture = bound;
  }

 private:
  QMatrix4x4 toRGB_;
  PictureLayout layout_ = PictureLayout::planar;
  float toneSteps_ = 0;
};

}  // namespace

PlaneTexture::~PlaneTexture() {
  drop();
}

void PlaneTexture::drop() {
  if (texture_) texture_->deleteLater();
  texture_ = nullptr;
  plane_ = {};
  memory_.reset();
  stale_ = false;
}

void PlaneTexture::show(const VideoPlane& plane, std::shared_ptr<const void> memory) {
  plane_ = plane;
  memory_ = std::move(memory);
  stale_ = true;
}

qint64 PlaneTexture::comparisonKey() const {
  return static_cast<qint64>(reinterpret_cast<quintptr>(this));
}

void PlaneTexture::commitTextureOperations(QRhi* rhi, QRhiResourceUpdateBatch* updates) {
  if (!stale_) return;
  const QRhiTexture::Format format = formatOf(plane_);
  if (texture_ && (texture_->pixelSize() != plane_.size || texture_->format() != format)) {
    texture_->deleteLater();
    texture_ = nullptr;
  }
  if (!texture_) {
    texture_ = rhi->newTexture(format, plane_.size);
    if (!texture_->create()) {
      delete texture_;
      texture_ = nullptr;
      return;
    }
  }
  QRhiTextureSubresourceUploadDescription upload;
  upload.setData(
      QByteArray::fromRawData(reinterpret_cast<const char*>(plane_.data),
                              static_cast<qsizetype>(plane_.stride) * plane_.size.height()));
  upload.setDataStride(static_cast<quint32>(plane_.stride));
  upload.setSourceSize(plane_.size);
  updates->uploadTexture(texture_, QRhiTextureUploadDescription({0, 0, upload}));
  stale_ = false;
}

ToneTexture::ToneTexture() {
  setFiltering(QSGTexture::Linear);
  setHorizontalWrapMode(QSGTexture::ClampToEdge);
  setVerticalWrapMode(QSGTexture::ClampToEdge);
}

ToneTexture::~ToneTexture() {
  show(nullptr);
}

void ToneTexture::show(std::shared_ptr<const ToneTable> tones) {
  if (tones == tones_) return;
  tones_ = std::move(tones);
  stale_ = tones_ != nullptr;
  if (!tones_ && texture_) std::exchange(texture_, nullptr)->deleteLater();
}

qint64 ToneTexture::comparisonKey() const {
  return static_cast<qint64>(reinterpret_cast<quintptr>(this));
}

QSize ToneTexture::textureSize() const {
  return {ToneTable::stepCount * ToneTable::stepCount, ToneTable::stepCount};
}

void ToneTexture::commitTextureOperations(QRhi* rhi, QRhiResourceUpdateBatch* updates) {
  if (!stale_) return;
  if (!texture_) {
    texture_ = rhi->newTexture(QRhiTexture::RGBA8, textureSize());
    if (!texture_->create()) {
      delete std::exchange(texture_, nullptr);
      return;
    }
  }
  QRhiTextureSubresourceUploadDescription upload;
  upload.setData(QByteArray(reinterpret_cast<const char*>(tones_->texels().data()),
                            static_cast<qsizetype>(tones_->texels().size())));
  updates->uploadTexture(texture_, QRhiTextureUploadDescription({0, 0, upload}));
  stale_ = false;
}

bool showsDeepSamples(QRhi* rhi) {
  return rhi->isTextureFormatSupported(QRhiTexture::R16) &&
         rhi->isTextureFormatSupported(QRhiTexture::RG16);
}

VideoMaterial::VideoMaterial() {
  for (PlaneTexture& texture : textures_) {
    texture.setFiltering(QSGTexture::Linear);
    texture.setHorizontalWrapMode(QSGTexture::ClampToEdge);
    texture.setVerticalWrapMode(QSGTexture::ClampToEdge);
  }
}

void VideoMaterial::show(const SharedFrame& frame) {
  layout_ = frame->layout;
  for (std::size_t i = 0; i < planesOf(layout_); ++i)
    textures_[i].show(frame->planes[i], frame->memory);
  for (std::size_t i = planesOf(layout_); i < textures_.size(); ++i) textures_[i].drop();
  tones_.show(frame->tones);
  const auto rows = rgbFactors(frame->matrix, frame->range, layout_);
  for (int row = 0; row < 3; ++row) {
    const auto& factors = rows[static_cast<std::size_t>(row)];
    toRGB_.setRow(row, QVector4D(factors[0], factors[1], factors[2], factors[3]));
  }
}

PlaneTexture& VideoMaterial::texture(int plane) {
  const auto last = static_cast<int>(planesOf(layout_)) - 1;
  return textures_.at(static_cast<std::size_t>(std::min(plane, last)));
}

void VideoMaterial::drop() {
  for (PlaneTexture& texture : textures_) texture.drop();
  tones_.show(nullptr);
}

QSGMaterialType* VideoMaterial::type() const {
  static QSGMaterialType type;
  return &type;
}

QSGMaterialShader* VideoMaterial::createShader(QSGRendererInterface::RenderMode) const {
  return new Shader;
}

int VideoMaterial::compare(const QSGMaterial* other) const {
  return this == other ? 0 : this < other ? -1 : 1;
}

}  // namespace vantor
