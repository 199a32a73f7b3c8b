#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QObject>

namespace vantor {

/// The look that every screen shares. Sizes are logical pixels.
class Style : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(QColor canvas MEMBER canvas CONSTANT)
  Q_PROPERTY(QColor mint MEMBER mint CONSTANT)
  Q_PROPERTY(QColor focusWhite MEMBER focusWhite CONSTANT)
  Q_PROPERTY(QColor panelColor MEMBER panelColor CONSTANT)
  Q_PROPERTY(QColor secondary READ secondary NOTIFY wishesChanged)
  Q_PROPERTY(QColor warning MEMBER warning CONSTANT)
  Q_PROPERTY(QColor hairline READ hairline NOTIFY wishesChanged)

  // As the user of the desktop wishes.
  Q_PROPERTY(double textScale READ textScale NOTIFY wishesChanged)
  Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY wishesChanged)
  // What the window had room for of that; what opens outside its content follows.
  Q_PROPERTY(double zoom MEMBER zoom_ NOTIFY zoomChanged)

  Q_PROPERTY(QFont largeTitle READ largeTitle CONSTANT)
  Q_PROPERTY(QFont title READ title CONSTANT)
  Q_PROPERTY(QFont title2 READ title2 CONSTANT)
  Q_PROPERTY(QFont headline READ headline CONSTANT)
  Q_PROPERTY(QFont body READ body CONSTANT)
  Q_PROPERTY(QFont callout READ callout CONSTANT)
  Q_PROPERTY(QFont caption READ caption CONSTANT)

  Q_PROPERTY(int radius MEMBER radius CONSTANT)
  Q_PROPERTY(int gap MEMBER gap CONSTANT)
  Q_PROPERTY(int inset MEMBER inset CONSTANT)
  Q_PROPERTY(int headroom MEMBER headroom CONSTANT)
  Q_PROPERTY(double disabledOpacity MEMBER disabledOpacity CONSTANT)

 public:
  explicit Style(QObject* parent = nullptr);

  const QColor canvas{16, 23, 27};         // window background; text on what is highlighted
  const QColor mint{103, 232, 197};        // accent
  const QColor focusWhite{232, 237, 237};  // text; background of what is highlighted
  const QColor panelColor{31, 41, 46};     // background of a plain button
  const QColor warning{255, 159, 10};

  const int radius = 5;
  const int gap = 10;       // between things that belong together
  const int inset = 22;     // from the edge of the content
  const int headroom = 64;  // that the window's frame takes above a sheet, and as much below
  const double disabledOpacity = 0.4;

  QColor secondary() const { return faded(focusWhite, highContrast_ ? 0.9 : 0.59); }
  QColor hairline() const { return faded(focusWhite, highContrast_ ? 0.6 : 0.11); }
  double textScale() const { return textScale_; }
  bool reducedMotion() const { return reducedMotion_; }
  /// `textScale`: 1 and more.
  void setWishes(double textScale, bool reducedMotion, bool highContrast);

  QFont largeTitle() const { return font(28); }
  QFont title() const { return font(24, QFont::Bold); }
  QFont title2() const { return font(18, QFont::DemiBold); }
  QFont headline() const { return font(14, QFont::DemiBold); }
  QFont body() const { return font(13); }
  QFont callout() const { return font(13); }
  QFont caption() const { return font(11); }

  /// The interface font.
  Q_INVOKABLE static QFont font(int size, int weight = QFont::Normal, double letterSpacing = 0);
  /// Size of a text on a picture of that height, to be read from the other end of the room.
  Q_INVOKABLE static int distantSize(double height);
  /// For the name of a title that has the room.
  Q_INVOKABLE static QFont serifFont(int size);
  Q_INVOKABLE static QFont iconFont();
  /// The logo, 160 x 90, for a screen with that many pixels in a logical one.
  Q_INVOKABLE static QImage brand(double pixelRatio);
  Q_INVOKABLE static QString glyph(const QString& symbol);
  Q_INVOKABLE static QColor faded(const QColor& color, double opacity);

 Q_SIGNALS:
  void wishesChanged();
  void zoomChanged();

 private:
  double textScale_ = 1;
  bool reducedMotion_ = false;
  bool highContrast_ = false;
  double zoom_ = 1;
};

}  // namespace vantor
