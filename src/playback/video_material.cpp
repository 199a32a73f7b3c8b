#include "playback/video_material.h"

#include <QMatrix4x4>
#include <cstring>

#include "playback/rhi.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

// Layout of the shaders' uniform block, in bytes.
constexpr int kMatrixSize = 64;
constexpr int kColorOffset = kMatrixSize;
constexpr int kOpacityOffset = 2 * kMatrixSize;

QMatrix4x4 colorMatrix(ColorMatrix matrix, ColorRange range) {
  const auto rows = rgbFactors(matrix, range);
  QMatrix4x4 values;
  for (int row = 0; row < 3; ++row) {
    const auto& factors = rows[static_cast<std::size_t>(row)];
    values.setRow(row, QVector4D(factors[0], factors[1], factors[2], factors[3]));
  }
  return values;
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
      std::memcpy(values, matrix.constData(), kMatrixSize);
      changed = true;
    }
    if (state.isOpacityDirty()) {
      const float opacity = state.opacity();
      std::memcpy(values + kOpacityOffset, &opacity, sizeof opacity);
      changed = true;
    }
    const auto* video = static_cast<VideoMaterial*>(material);
    const auto* before = static_cast<VideoMaterial*>(old);
    if (!before || before != video || video->matrix() != matrix_ || video->range() != range_) {
      matrix_ = video->matrix();
      range_ = video->range();
      const QMatrix4x4 colors = colorMatrix(matrix_, range_);
      std::memcpy(values + kColorOffset, colors.constData(), kMatrixSize);
      changed = true;
    }
    return changed;
  }

  void updateSampledImage(RenderState& state, int binding, QSGTexture** texture,
                          QSGMaterial* material, QSGMaterial*) override {
    auto* video = static_cast<VideoMaterial*>(material);
    PlaneTexture& plane = video->textures().at(static_cast<std::size_t>(binding - 1));
    plane.commitTextureOperations(state.rhi(), state.resourceUpdateBatch());
    *texture = &plane;
  }

 private:
  ColorMatrix matrix_ = ColorMatrix::bt709;
  ColorRange range_ = ColorRange::limited;
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
  if (texture_ && texture_->pixelSize() != plane_.size) {
    texture_->deleteLater();
    texture_ = nullptr;
  }
  if (!texture_) {
    texture_ = rhi->newTexture(QRhiTexture::R8, plane_.size);
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

VideoMaterial::VideoMaterial() {
  for (PlaneTexture& texture : textures_) {
    texture.setFiltering(QSGTexture::Linear);
    texture.setHorizontalWrapMode(QSGTexture::ClampToEdge);
    texture.setVerticalWrapMode(QSGTexture::ClampToEdge);
  }
}

void VideoMaterial::show(const SharedFrame& frame) {
  for (std::size_t i = 0; i < textures_.size(); ++i)
    textures_[i].show(frame->planes[i], frame->memory);
  matrix_ = frame->matrix;
  range_ = frame->range;
}

void VideoMaterial::drop() {
  for (PlaneTexture& texture : textures_) texture.drop();
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
