#include "contrast.h"

#include <QImage>
#include <QQuickItem>
#include <QQuickPaintedItem>
#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <set>

#include "shown_texts.h"
#include "ui/style/style.h"

namespace vantor::screens {

namespace {

constexpr double leastOfWords = 4.5;
constexpr double leastOfSymbols = 3;

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

struct Text {
  QQuickItem* item = nullptr;
  QColor color;
  std::optional<QColor> outline;
  double opacity = 1;  // with that of all around it
  QRect area;          // of the window's picture, in its pixels

  bool isSymbol() const {
    return item->property("font").value<QFont>().family() == Style::iconFont().family();
  }
};

/// What is used as paint for a text, seen on the ground.
QColor seen(const QColor& paint, const QColor& ground, double opacity) {
  const double share = paint.alphaF() * opacity;
  const auto mixed = [&](double above, double below) {
    return static_cast<float>(above * share + below * (1 - share));
  };
  return QColor::fromRgbF(mixed(paint.redF(), ground.redF()),
                          mixed(paint.greenF(), ground.greenF()),
                          mixed(paint.blueF(), ground.blueF()));
}

double contrastOn(const QColor& ground, const Text& text) {
  const double inside = contrast(seen(text.color, ground, text.opacity), ground);
  if (!text.outline) return inside;
  // A narrow border counts as part of the letter.
  return std::max(inside, contrast(seen(*text.outline, ground, text.opacity), ground));
}

/// Stands for a picture, of which nobody knows how bright it is.
class PlainPicture final : public QQuickPaintedItem {
 public:
  explicit PlainPicture(QQuickItem* picture) : QQuickPaintedItem(picture) {
    setSize(picture->size());
  }
  void paint(QPainter*) override {}
};

using Pictures = std::vector<std::unique_ptr<PlainPicture>>;

Pictures plainPictures(QQuickWindow& window) {
  QList<QQuickItem*> shown;
  forEachShown(window.contentItem(), [&](QQuickItem* item) {
    if (item->inherits("vantor::VideoSurface") || item->inherits("vantor::StillImage") ||
        item->property("hasImage").toBool())
      shown.append(item);
  });
  Pictures plain;
  for (QQuickItem* item : shown) plain.push_back(std::make_unique<PlainPicture>(item));
  return plain;
}

/// What can be used now: the window, or the modal popup that was opened last with what lies above
/// it.
QList<QQuickItem*> inUse(QQuickWindow& window) {
  for (QQuickItem* overlay : window.contentItem()->childItems()) {
    if (!overlay->inherits("QQuickOverlay")) continue;
    const QList<QQuickItem*> popups = overlay->childItems();
    for (qsizetype i = popups.size() - 1; i >= 0; --i) {
      const QObject* popup = popups.at(i)->parent();
      if (popups.at(i)->isVisible() && popup && popup->property("modal").toBool())
        return popups.mid(i);
    }
  }
  return {window.contentItem()};
}

std::optional<Text> textOf(QQuickItem* item, double pixelRatio) {
  const bool words = item->inherits("QQuickText");
  if (!words && !item->inherits("QQuickTextInput")) return {};
  if (!item->isEnabled() || item->property("text").toString().trimmed().isEmpty()) return {};
  Text text{item, item->property("color").value<QColor>(), {}, 1, {}};
  if (words && item->property("style").toInt() != 0)
    text.outline = item->property("styleColor").value<QColor>();
  for (const QQuickItem* around = item; around; around = around->parentItem())
    text.opacity *= around->opacity();
  const QRectF box = item->mapRectToScene(item->boundingRect());
  text.area = QRectF(box.topLeft() * pixelRatio, box.size() * pixelRatio).toAlignedRect();
  return text;
}

std::vector<Text> textsInUse(QQuickWindow& window) {
  std::vector<Text> texts;
  for (QQuickItem* part : inUse(window))
    forEachShown(part, [&](QQuickItem* item) {
      if (auto text = textOf(item, window.effectiveDevicePixelRatio())) texts.push_back(*text);
    });
  return texts;
}

/// Texts that do not touch each other, so that each pixel belongs to one of them.
using Batch = std::vector<const Text*>;

std::vector<Batch> batchesOf(const std::vector<Text>& texts) {
  std::vector<Batch> batches;
  for (const Text& text : texts) {
    const auto free = std::find_if(batches.begin(), batches.end(), [&](const Batch& batch) {
      return std::none_of(batch.begin(), batch.end(),
                          [&](const Text* other) { return other->area.intersects(text.area); });
    });
    (free == batches.end() ? batches.emplace_back() : *free).push_back(&text);
  }
  return batches;
}

/// While it is there the texts leave their places empty.
class TakenAway {
 public:
  explicit TakenAway(const std::vector<Text>& texts) : texts_(texts) {
    for (const Text& text : texts_) paint(text, Qt::transparent, Qt::transparent);
  }
  ~TakenAway() {
    for (const Text& text : texts_) paint(text, text.color, text.outline.value_or(QColor()));
  }
  Q_DISABLE_COPY_MOVE(TakenAway)

  static void paint(const Text& text, const QColor& color, const QColor& outline) {
    text.item->setProperty("color", color);
    if (text.outline) text.item->setProperty("styleColor", outline);
  }

 private:
  const std::vector<Text>& texts_;
};

QImage pictureOf(QQuickWindow& window) {
  return window.grabWindow().convertToFormat(QImage::Format_RGB32);
}

int difference(QRgb one, QRgb other) {
  return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                   std::abs(qBlue(one) - qBlue(other))});
}

/// The colours behind the letters; none where the text is not to be seen. `marked` is the first of
/// the grounds with the text on it, in a colour that stands out.
std::set<QRgb> behind(const Text& text, const std::vector<QImage>& grounds, const QImage& marked) {
  constexpr int noise = 8;
  const QRect area = text.area & marked.rect();
  const auto strength = [&](int x, int y) {
    return difference(grounds.front().pixel(x, y), marked.pixel(x, y));
  };
  int strongest = noise;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x)
      strongest = std::max(strongest, strength(x, y));
  std::set<QRgb> colors;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x)
      if (strength(x, y) > strongest / 2)
        for (const QImage& ground : grounds) colors.insert(ground.pixel(x, y));
  return strongest > noise ? colors : std::set<QRgb>();
}

}  // namespace

std::vector<TextContrast> textContrasts(QQuickWindow& window) {
  const Pictures pictures = plainPictures(window);
  const auto makeThem = [&](const QColor& color) {
    for (const auto& picture : pictures) picture->setFillColor(color);
    return pictureOf(window);
  };
  const std::vector<Text> texts = textsInUse(window);
  const TakenAway away(texts);
  const std::vector<QImage> grounds = {makeThem(Qt::black), makeThem(Qt::white)};
  std::vector<TextContrast> found;
  for (const Batch& batch : batchesOf(texts)) {
    for (const Text* text : batch) TakenAway::paint(*text, Qt::magenta, Qt::transparent);
    const QImage marked = makeThem(Qt::black);
    for (const Text* text : batch) {
      TakenAway::paint(*text, Qt::transparent, Qt::transparent);
      const std::set<QRgb> colors = behind(*text, grounds, marked);
      if (colors.empty()) continue;
      TextContrast worst{text->item->property("text").toString(), 21,
                         text->isSymbol() ? leastOfSymbols : leastOfWords};
      for (const QRgb color : colors)
        worst.ratio = std::min(worst.ratio, contrastOn(QColor(color), *text));
      found.push_back(std::move(worst));
    }
  }
  return found;
}

}  // namespace vantor::screens
