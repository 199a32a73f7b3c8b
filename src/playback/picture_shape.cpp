#include "playback/picture_shape.h"

namespace vantor {
namespace {

QRectF around(const QPointF& middle, const QSizeF& size) {
  return {middle - QPointF(size.width(), size.height()) / 2, size};
}

}  // namespace

PicturePlace placeOf(const QRectF& area, double aspect, PictureShape shape) {
  constexpr QRectF whole(0, 0, 1, 1);
  if (shape == PictureShape::stretch) return {area, whole};
  if (shape == PictureShape::fill) {
    const QSizeF size = QSizeF(aspect, 1).scaled(area.size(), Qt::KeepAspectRatioByExpanding);
    return {area,
            around(whole.center(), {area.width() / size.width(), area.height() / size.height()})};
  }
  if (shape == PictureShape::fourToThree) aspect = 4.0 / 3;
  if (shape == PictureShape::sixteenToNine) aspect = 16.0 / 9;
  return {around(area.center(), QSizeF(aspect, 1).scaled(area.size(), Qt::KeepAspectRatio)), whole};
}

}  // namespace vantor
