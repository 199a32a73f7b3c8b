#pragma once

#include <QKeyEvent>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "contrast.h"
#include "platform/launch_arguments.h"
#include "sim/server.h"
#include "ui/views.h"

class QQuickItem;
class QQuickWindow;

namespace vantor {
class Program;
}

namespace vantor::screens {

/// Where the pictures go, numbered in the order in which they are taken, and what they had of faint
/// texts.
struct Album {
  QString folder;
  QString filter;  // only pictures whose name contains it are kept
  int taken = 0;
  TextContrast worst;  // of all pictures, measured by what is asked for
  QString worstPicture;
  int faintTexts = 0;

  void add(const QString& picture, const TextContrast& text);
};

/// The program in its window, against a simulated provider of its own, and without anything saved.
/// Every wait ends; one that ends in vain throws std::runtime_error.
class Stage {
 public:
  explicit Stage(Album& album, sim::Options options = {}, const LaunchArguments& launch = {});
  ~Stage();

  sim::Server& provider() { return server_; }
  Views& views() { return *views_; }
  QQuickWindow& window() { return *window_; }

  /// Fills in the sign-in sheet with the provider's account and sends it off.
  void submitSignIn();
  /// Signs in and waits for the first library.
  void signIn();
  /// Shows the section and waits for its entries.
  void show(Section section);
  void until(const char* what, const std::function<bool()>& condition);
  /// Waits until `count` more requests of the action have arrived at the provider.
  void untilAsked(const char* action, int count = 1);
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// Clicks the control of that name.
  void click(const QString& accessibleName);
  /// Lets pictures arrive and animations end.
  void settle();
  /// Takes the picture `name`, of which `what` tells what is to be seen on it.
  void shot(const QString& name, const QString& what);

 private:
  QQuickItem* named(const QString& accessibleName);

  Album& album_;
  sim::Options options_;
  sim::Server server_;
  QTemporaryDir home_;
  std::unique_ptr<Program> program_;
  QQuickWindow* window_ = nullptr;
  Views* views_ = nullptr;
};

}  // namespace vantor::screens
