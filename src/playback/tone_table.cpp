#include "playback/tone_table.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vantor {

namespace {

using Light = std::array<double, 3>;  // cd/m² of red, green and blue

constexpr double referenceWhite = 203;    // cd/m², BT.2408
constexpr double brightestTone = 10'000;  // cd/m², the end of ST 2084
constexpr double displayGamma = 2.4;      // BT.1886 with a black that is black

// An HLG display of this peak is what the reference white is said for.
constexpr double hlgPeak = 1'000;
constexpr double hlgGamma = 1.2;

// ST 2084.
constexpr double m1 = 2610.0 / 16384;
constexpr double m2 = 2523.0 / 4096 * 128;
constexpr double c1 = 3424.0 / 4096;
constexpr double c2 = 2413.0 / 4096 * 32;
constexpr double c3 = 2392.0 / 4096 * 32;

double lightOfPQ(double signal) {
  const double power = std::pow(signal, 1 / m2);
  return brightestTone * std::pow(std::max(power - c1, 0.0) / (c2 - c3 * power), 1 / m1);
}

double signalOfPQ(double light) {
  const double power = std::pow(std::clamp(light / brightestTone, 0.0, 1.0), m1);
  return std::pow((c1 + c2 * power) / (1 + c3 * power), m2);
}

/// The scene's light, 0 to 1, by BT.2100.
double sceneOfHLG(double signal) {
  constexpr double a = 0.17883277;
  constexpr double b = 1 - 4 * a;
  const double c = 0.5 - a * std::log(4 * a);
  return signal <= 0.5 ? signal * signal / 3 : (std::exp((signal - c) / a) + b) / 12;
}

Light lightOfHLG(const RGB& picture) {
  const Light scene{sceneOfHLG(picture[0]), sceneOfHLG(picture[1]), sceneOfHLG(picture[2])};
  const double luminance = 0.2627 * scene[0] + 0.6780 * scene[1] + 0.0593 * scene[2];
  const double gain = luminance > 0 ? hlgPeak * std::pow(luminance, hlgGamma - 1) : 0;
  return {gain * scene[0], gain * scene[1], gain * scene[2]};
}

/// BT.2390: bends what is brighter than a knee towards the display's white.
double mapped(double light, double peak) {
  const double brightest = signalOfPQ(peak);
  const double white = signalOfPQ(referenceWhite) / brightest;
  const double knee = 1.5 * white - 0.5;
  // Nothing is brighter than the display shows, and there is no room to bend it in.
  if (knee >= 1) return std::min(light, referenceWhite);
  const double signal = std::min(signalOfPQ(light) / brightest, 1.0);
  if (signal < knee) return light;
  const double t = (signal - knee) / (1 - knee);
  const double t2 = t * t;
  const double t3 = t2 * t;
  const double bent =
      (2 * t3 - 3 * t2 + 1) * knee + (t3 - 2 * t2 + t) * (1 - knee) + (3 * t2 - 2 * t3) * white;
  return lightOfPQ(bent * brightest);
}

Light shownLight(const RGB& picture, const PictureLight& light) {
  Light shown{};
  switch (light.transfer) {
    case Transfer::standard:
      std::ranges::transform(picture, shown.begin(), [](float signal) {
        return referenceWhite * std::pow(static_cast<double>(signal), displayGamma);
      });
      return shown;
    case Transfer::pq: {
      const double peak = std::clamp(light.peak, referenceWhite, brightestTone);
      std::ranges::transform(picture, shown.begin(), [peak](float signal) {
        return mapped(lightOfPQ(static_cast<double>(signal)), peak);
      });
      return shown;
    }
    case Transfer::hlg:
      break;
  }
  shown = lightOfHLG(picture);
  for (double& part : shown) part = mapped(part, hlgPeak);
  return shown;
}

/// BT.2087.
Light toBT709(const Light& light) {
  const auto& [red, green, blue] = light;
  return {1.6605 * red - 0.5876 * green - 0.0728 * blue,
          -0.1246 * red + 1.1329 * green - 0.0083 * blue,
          -0.0182 * red - 0.1006 * green + 1.1187 * blue};
}

RGB mixed(const RGB& from, const RGB& to, float part) {
  RGB result;
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = from[i] + (to[i] - from[i]) * part;
  return result;
}

}  // namespace

RGB standardOf(const RGB& picture, const PictureLight& light) {
  Light shown = shownLight(picture, light);
  if (light.primaries == Primaries::bt2020) shown = toBT709(shown);
  RGB result;
  std::ranges::transform(shown, result.begin(), [](double part) {
    const double bounded = std::clamp(part / referenceWhite, 0.0, 1.0);
    return static_cast<float>(std::pow(bounded, 1 / displayGamma));
  });
  return result;
}

ToneTable::ToneTable(const PictureLight& light) {
  texels_.reserve(std::size_t{4} * stepCount * stepCount * stepCount);
  const auto step = [](int index) { return static_cast<float>(index) / (stepCount - 1); };
  for (int green = 0; green < stepCount; ++green) {
    for (int blue = 0; blue < stepCount; ++blue) {
      for (int red = 0; red < stepCount; ++red) {
        for (const float part : standardOf({step(red), step(green), step(blue)}, light))
          texels_.push_back(static_cast<std::uint8_t>(std::lround(part * 255)));
        texels_.push_back(255);
      }
    }
  }
}

RGB ToneTable::at(const RGB& picture) const {
  std::array<int, 3> below;
  std::array<float, 3> part;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    const float place = std::clamp(picture[i], 0.0f, 1.0f) * (stepCount - 1);
    below[i] = std::min(static_cast<int>(place), stepCount - 2);
    part[i] = place - static_cast<float>(below[i]);
  }
  const auto corner = [&](int red, int green, int blue) {
    const int index =
        ((below[1] + green) * stepCount + below[2] + blue) * stepCount + below[0] + red;
    const std::uint8_t* texel = &texels_[static_cast<std::size_t>(index) * 4];
    return RGB{static_cast<float>(texel[0]) / 255, static_cast<float>(texel[1]) / 255,
               static_cast<float>(texel[2]) / 255};
  };
  const auto row = [&](int green, int blue) {
    return mixed(corner(0, green, blue), corner(1, green, blue), part[0]);
  };
  const auto square = [&](int blue) { return mixed(row(0, blue), row(1, blue), part[1]); };
  return mixed(square(0), square(1), part[2]);
}

}  // namespace vantor
