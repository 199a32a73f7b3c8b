// From the start of the process to the first frame on the display that lists the channels of a
// saved account, beside the first frame of an empty Qt Quick window. Needs a display and a secret
// service of its own.
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QThread>

#include "library/catalog_stored_form.h"
#include "measure.h"
#include "platform/folders.h"
#include "platform/secret_service_store.h"
#include "provider/catalog_parsing.h"
#include "provider/provider_account.h"
#include "provider/service_values.h"
#include "sim/library.h"
#include "sim/server.h"
#include "storage/catalog_disk_store.h"
#include "storage/private_file.h"
#include "storage/sealed_box.h"
#include "storage/secure_store.h"

namespace vantor::bench {
namespace {

constexpr int rounds = 7;
constexpr int channels = 50'000;
// A place across every row of the list, past its texts.
constexpr int listColumn = 436;

/// Whether the display shows rows of the list: two colours that only rows have, in turns, down a
/// column that crosses them.
bool listsRows(const QImage& column) {
  int rows = 0;
  bool inRow = false;
  for (int y = 0; y < column.height(); ++y) {
    const bool row = column.pixelColor(0, y) == QColor(0x1F, 0x29, 0x2E);
    rows += row && !inRow ? 1 : 0;
    inRow = row;
  }
  return rows >= 8;
}

bool isFilled(const QImage& column) {
  return column.pixelColor(0, column.height() / 2) == QColor(0x1F, 0x29, 0x2E);
}

double untilShown(const QString& program, bool (*shown)(const QImage&), int column) {
  QScreen* const screen = QGuiApplication::primaryScreen();
  QProcess process;
  QElapsedTimer timer;
  timer.start();
  process.start(program, QStringList());
  process.waitForStarted();
  while (timer.elapsed() < 20'000) {
    const QImage image = screen->grabWindow(0, column, 0, 1, screen->size().height()).toImage();
    if (shown(image)) break;
    QThread::msleep(2);
  }
  const double time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  process.terminate();
  if (!process.waitForFinished(8000)) process.kill();
  process.waitForFinished();
  return time;
}

void saveAccount(const sim::Server& server, const sim::Options& options) {
  SecretServiceStore desktop;
  const SecureStore secrets(desktop, ServiceValues::ofBuild().bundleIdentifier);
  const ProviderAccount account = ProviderAccount::validated(
      QStringLiteral("Vantor TV"), QString::fromStdString(server.url()),
      QString::fromStdString(options.username), QString::fromStdString(options.password));
  secrets.write(account.toJSON(), providerItem, {});
  const QByteArray key = sealed_box::randomBytes(sealed_box::keySize);
  secrets.write(key, catalogKeyItem, {});
  const QString folder =
      Folders::ofUser().applicationSupport + QStringLiteral("/Vantor Player Mac Preview/Catalog");
  makePrivateFolder(folder);
  const QByteArray rows =
      QByteArray::fromStdString(sim::rowsJson(sim::Kind::live, channels, "http://127.0.0.1:1"));
  const Catalog catalog =
      parseCatalog(rows, QByteArray::fromStdString(sim::categoriesJson(sim::Kind::live)),
                   LibraryKind::live, std::chrono::system_clock::now());
  private_file::replace(folder + QLatin1Char('/') + account.idText() + QStringLiteral("-live.bin"),
                        sealed_box::seal(CatalogWriter::toJSON(catalog), key));
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  using namespace vantor::bench;
  sim::Options options;
  options.streams = false;
  const sim::Server server(options);
  qputenv("VANTOR_CONFIG_URL", QByteArray::fromStdString(server.configUrl()));
  qputenv("VANTOR_AUDIO", "none");
  saveAccount(server, options);
  const QDir programs(QCoreApplication::applicationDirPath());
  const QString empty = programs.filePath(QStringLiteral("empty_window"));
  const QString player = programs.filePath(QStringLiteral("../src/app/vantor"));
  Times emptyTimes;
  Times playerTimes;
  for (int i = 0; i < rounds; ++i) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    emptyTimes.add(Milliseconds(untilShown(empty, isFilled, 700)));
    playerTimes.add(Milliseconds(untilShown(player, listsRows, listColumn)));
  }
  const double ratio = playerTimes.median() / emptyTimes.median();
  row("launch with 50,000 channels -> first frame with them", milliseconds(playerTimes.median()),
      "empty window " + milliseconds(emptyTimes.median()), factor(ratio) + " (1.5 x)",
      ratio <= 1.5);
  return 0;
}
