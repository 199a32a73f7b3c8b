#pragma once

#include <QRectF>

namespace vantor {

/// How a picture lies in its area: all of it, as large as fits; filling it, with what does not fit
/// cut off; stretched to it; or all of it with sides of 4:3 or 16:9, whatever its source says.
enum class PictureShape { fit, fill, stretch, fourToThree, sixteenToNine };

struct PicturePlace {
  QRectF target;  // in the area's units, in its middle
  QRectF part;    // of the picture, whose sides are 1
};

/// For a picture `aspect` times as wide as high; the area is not empty.
PicturePlace placeOf(const QRectF& area, double aspect, PictureShape shape);

}  // namespace vantor
