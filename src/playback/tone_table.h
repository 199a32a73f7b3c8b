#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace vantor {

/// How a picture's numbers stand for light: as standard displays have it (ITU-R BT.1886), as SMPTE
/// ST 2084 (PQ) or as ITU-R BT.2100 (HLG).
enum class Transfer : unsigned char { standard, pq, hlg };
/// What red, green and blue are.
enum class Primaries : unsigned char { bt709, bt2020 };

/// The light of a source's pictures.
struct PictureLight {
  Transfer transfer = Transfer::standard;
  Primaries primaries = Primaries::bt709;
  double peak = 1000;  // cd/m² of the brightest, for PQ
  bool operator==(const PictureLight&) const = default;
};

/// Whether a standard display shows it right without more.
constexpr bool isStandard(const PictureLight& light) {
  return light.transfer == Transfer::standard && light.primaries == Primaries::bt709;
}

/// Red, green and blue, each 0 to 1.
using RGB = std::array<float, 3>;

/// What a standard display is given for the light of a picture: tones are mapped by the EETF of
/// ITU-R BT.2390 (section 5.4.1) for each of red, green and blue, so that the reference white of
/// ITU-R BT.2408 is white, and primaries by ITU-R BT.2087. Colours that the display does not have
/// lose what it lacks.
RGB standardOf(const RGB& picture, const PictureLight& light);

/// The same at steps of red, green and blue, for a graphics card to look up and interpolate.
class ToneTable {
 public:
  static constexpr int stepCount = 33;

  explicit ToneTable(const PictureLight& light);

  /// Interpolated.
  RGB at(const RGB& picture) const;
  /// Red, green, blue and 255 at each step: rows of green, in each of them for every step of blue
  /// all steps of red.
  const std::vector<std::uint8_t>& texels() const { return texels_; }

 private:
  std::vector<std::uint8_t> texels_;
};

}  // namespace vantor
