#pragma once

#include <QSGMaterial>
#include <QSGTexture>
#include <array>
#include <memory>

#include "playback/video_frame.h"

class QRhiTexture;

namespace vantor {

/// One plane of the shown picture on the graphics card. Render thread only.
class PlaneTexture final : public QSGTexture {
 public:
  ~PlaneTexture() override;

  /// Uploads the plane when the next frame is drawn; `memory` is kept until the next call.
  void show(const VideoPlane& plane, std::shared_ptr<const void> memory);
  void drop();

  qint64 comparisonKey() const override;
  QRhiTexture* rhiTexture() const override { return texture_; }
  QSize textureSize() const override { return plane_.size; }
  bool hasAlphaChannel() const override { return false; }
  bool hasMipmaps() const override { return false; }
  void commitTextureOperations(QRhi* rhi, QRhiResourceUpdateBatch* updates) override;

 private:
  VideoPlane plane_;
  std::shared_ptr<const void> memory_;
  bool stale_ = false;
  QRhiTexture* texture_ = nullptr;
};

/// Draws three planes as one picture. Render thread only.
class VideoMaterial final : public QSGMaterial {
 public:
  VideoMaterial();

  void show(const SharedFrame& frame);
  /// Keeps nothing of the last picture.
  void drop();

  std::array<PlaneTexture, 3>& textures() { return textures_; }
  ColorMatrix matrix() const { return matrix_; }
  ColorRange range() const { return range_; }

  QSGMaterialType* type() const override;
  QSGMaterialShader* createShader(QSGRendererInterface::RenderMode mode) const override;
  int compare(const QSGMaterial* other) const override;

 private:
  std::array<PlaneTexture, 3> textures_;
  ColorMatrix matrix_ = ColorMatrix::bt709;
  ColorRange range_ = ColorRange::limited;
};

}  // namespace vantor
