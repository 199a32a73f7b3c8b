#pragma once

#include <QMatrix4x4>
#include <QSGMaterial>
#include <QSGTexture>
#include <array>
#include <memory>

#include "playback/video_frame.h"

class QRhi;
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

/// How the tones of the shown picture are mapped, on the graphics card. Render thread only.
class ToneTexture final : public QSGTexture {
 public:
  ToneTexture();
  ~ToneTexture() override;

  /// Null where none are.
  void show(std::shared_ptr<const ToneTable> tones);
  bool isShown() const { return tones_ != nullptr; }

  qint64 comparisonKey() const override;
  QRhiTexture* rhiTexture() const override { return texture_; }
  QSize textureSize() const override;
  bool hasAlphaChannel() const override { return false; }
  bool hasMipmaps() const override { return false; }
  void commitTextureOperations(QRhi* rhi, QRhiResourceUpdateBatch* updates) override;

 private:
  std::shared_ptr<const ToneTable> tones_;
  bool stale_ = false;
  QRhiTexture* texture_ = nullptr;
};

/// Whether textures of this graphics card hold samples of 16 bits.
bool showsDeepSamples(QRhi* rhi);

/// Draws the planes as one picture. Render thread only.
class VideoMaterial final : public QSGMaterial {
 public:
  VideoMaterial();

  void show(const SharedFrame& frame);
  /// Keeps nothing of the last picture.
  void drop();

  /// Of Y, U and V; those of U and V are one when they lie in one plane.
  PlaneTexture& texture(int plane);
  ToneTexture& tones() { return tones_; }
  const QMatrix4x4& toRGB() const { return toRGB_; }
  PictureLayout layout() const { return layout_; }

  QSGMaterialType* type() const override;
  QSGMaterialShader* createShader(QSGRendererInterface::RenderMode mode) const override;
  int compare(const QSGMaterial* other) const override;

 private:
  std::array<PlaneTexture, 3> textures_;
  ToneTexture tones_;
  QMatrix4x4 toRGB_;
  PictureLayout layout_ = PictureLayout::planar;
};

}  // namespace vantor
