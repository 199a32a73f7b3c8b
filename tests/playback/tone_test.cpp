// Pictures of a wider range of light and of colours than the display's, beside what ffmpeg makes of
// them with the same standards: its zscale filter knows the curves and primaries, and the mapping
// of tones is given to it as a formula.

#include <QTemporaryDir>

#include "playback/libvlc_engine.h"
#include "playback/still.h"
#include "playback/tone_table.h"
#include "support/test_media.h"
#include "surface_fixture.h"

namespace vantor::test {
namespace {

constexpr QSize size(320, 180);
// 0.7 to 1.4 were seen; chroma is not interpolated alike.
constexpr double tolerance = 1.5;

/// Smooth changes of everything, and below them all grays.
QString ramps(const QString& light) {
  return u"-f lavfi -i nullsrc=s=%1x%2:r=25:d=2,format=gbrp10le,"
         "geq=r='1023*X/W':g='if(lt(Y,135),1023*Y/135,1023*X/W)'"
         ":b='if(lt(Y,135),1023*abs(1-2*X/W),1023*X/W)',scale=out_color_matrix=bt2020:out_range=tv,"
         "format=yuv420p10le,setparams=colorspace=bt2020nc:color_primaries=bt2020:color_trc=%3 "
         "-c:v libx264 -qp 0 -colorspace bt2020nc -color_primaries bt2020 -color_trc %3"_s
             .arg(size.width())
             .arg(size.height())
             .arg(light);
}

/// BT.2390's curve from 1,000 to 203 cd/m², for one of red, green and blue in PQ.
QString bent() {
  const QString brightest = u"0.7518271"_s;  // PQ of 1,000 cd/m²
  const QString white = u"0.7723702"_s;      // PQ of 203 cd/m², as a part of that
  const QString knee = u"0.6585553"_s;
  return u"st(0,min(val/maxval/%1,1));st(1,(ld(0)-%3)/(1-%3));maxval*%1*if(lt(ld(0),%3),ld(0),"
         "(2*pow(ld(1),3)-3*pow(ld(1),2)+1)*%3+(pow(ld(1),3)-2*pow(ld(1),2)+ld(1))*(1-%3)"
         "+(3*pow(ld(1),2)-2*pow(ld(1),3))*%2)"_s.arg(brightest, white, knee);
}

/// From HLG to PQ on a display of 1,000 cd/m² by BT.2100. The filter zscale would take the
/// display's gamma of red, green and blue one by one, and not of their luminance.
QString fromHLG() {
  const auto scene = [](const QString& signal) {
    return u"if(lte(%1,0.5),pow(%1,2)/3,(exp((%1-0.55991073)/0.17883277)+0.28466892)/12)"_s.arg(
        signal + u"(X,Y)/65535"_s);
  };
  const auto one = [&](int part) {
    return u"st(0,%1);st(1,%2);st(2,%3);"
           "st(3,pow(0.1*ld(%4)*pow(0.2627*ld(0)+0.678*ld(1)+0.0593*ld(2),0.2),0.1593017578125));"
           "65535*pow((0.8359375+18.8515625*ld(3))/(1+18.6875*ld(3)),78.84375)"_s
               .arg(scene(u"r"_s), scene(u"g"_s), scene(u"b"_s))
               .arg(part);
  };
  return u",geq=r='%1':g='%2':b='%3'"_s.arg(one(0), one(1), one(2));
}

/// Mean difference of red, green and blue, of 255.
double between(const QImage& seen, const QImage& expected) {
  double sum = 0;
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) {
      const QRgb a = seen.pixel(x, y);
      const QRgb b = expected.pixel(x, y);
      sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
             std::abs(qBlue(a) - qBlue(b));
    }
  }
  return sum / (3.0 * size.width() * size.height());
}

TEST(ToneTable, KeepsTheGraysOfAPictureThatIsNoBrighterThanTheDisplay) {
  for (const double peak : {100.0, 203.0}) {
    SCOPED_TRACE(peak);
    const ToneTable table({.transfer = Transfer::pq, .peak = peak});
    float last = 0;
    for (int step = 0; step < ToneTable::stepCount; ++step) {
      const float signal = static_cast<float>(step) / (ToneTable::stepCount - 1);
      const float shown = table.at({signal, signal, signal})[0];
      EXPECT_GE(shown, last) << step;
      last = shown;
    }
    EXPECT_EQ(last, 1);
  }
}

using ToneTest = SurfaceFixture;

TEST_F(ToneTest, AreThoseThatAnotherProgramMakesOfThem) {
  if (libVLCInternals() == LibVLCInternals::left) GTEST_SKIP() << "with this version of libVLC";
  qputenv("VANTOR_AUDIO", "none");
  const QTemporaryDir folder;
  const QString toRGB = u"zscale=min=2020_ncl:rin=limited:m=gbr:r=full,format=gbrp16le"_s;
  const QString tones = u",lutrgb=r='%1':g='%1':b='%1',zscale=tin=smpte2084:"_s.arg(bent());
  const QString toDisplay =
      u"pin=2020:t=linear:npl=203:p=709,format=gbrpf32le,zscale=t=709,format=rgb24"_s;
  const std::pair<QString, QString> cases[] = {
      {u"smpte2084"_s, toRGB + tones + toDisplay},
      {u"arib-std-b67"_s, toRGB + fromHLG() + tones + toDisplay},
      {u"bt2020-10"_s, toRGB + u",zscale=tin=709:"_s + toDisplay},
  };
  LibVLCEngine engine(frames, Output::shown);
  surface.setSize(size);
  EXPECT_TRUE(shows({100, 100}, Qt::black));
  for (const bool deep : {true, false}) {
    if (deep && !frames->showsDeepSamples()) continue;
    frames->setShowsDeepSamples(deep);
    for (const auto& [transfer, filters] : cases) {
      SCOPED_TRACE(transfer.toStdString() + (deep ? " in 10 bits" : " in 8 bits"));
      const QString file = folder.filePath(transfer + u".mkv"_s);
      const QString reference = folder.filePath(transfer + u".png"_s);
      ASSERT_TRUE(makeMedia(ramps(transfer), file));
      ASSERT_TRUE(makeMedia(u"-i %1 -frames:v 1 -vf "_s.arg(file) + filters, reference));
      const QImage expected(reference);
      ASSERT_EQ(expected.size(), size);
      engine.load({.address = QUrl::fromLocalFile(file)});
      engine.play();
      SharedFrame frame;
      ASSERT_TRUE(eventually([&] { return (frame = frames->latest()) != nullptr; }));
      EXPECT_EQ(isDeep(frame->layout), deep);
      EXPECT_LT(between(stillOf(*frame, size.width()), expected), tolerance);
      double difference = 0;
      EXPECT_TRUE(eventually([&] {
        difference = between(window.grabWindow().copy(QRect(QPoint(), size)), expected);
        return difference < tolerance;
      })) << difference;
    }
  }
}

}  // namespace
}  // namespace vantor::test
