// Reading, saving and searching large libraries, each beside what bounds it, in turns in one run.
#include <simdjson.h>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <cstring>
#include <ctime>

#include "core/item_list.h"
#include "library/catalog_stored_form.h"
#include "library/folded_text.h"
#include "measure.h"
#include "net/http_client.h"
#include "platform/job.h"
#include "platform/worker.h"
#include "provider/catalog_parsing.h"
#include "provider/provider_client.h"
#include "sim/library.h"
#include "sim/server.h"
#include "storage/private_file.h"
#include "storage/sealed_box.h"

namespace vantor::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 9;
constexpr int largeLibrary = 90'000;

QByteArray answer(sim::Kind kind, int rows) {
  return QByteArray::fromStdString(sim::rowsJson(kind, rows, "http://provider.example"));
}

Catalog parse(const QByteArray& body, LibraryKind kind) {
  return parseCatalog(body, "[]", kind, std::chrono::system_clock::now());
}

/// Parses and reads every value, which is the least that any reader of the answer does.
std::size_t mereParse(const QByteArray& body) {
  simdjson::dom::parser parser;
  const simdjson::padded_string padded(body.constData(), static_cast<std::size_t>(body.size()));
  const simdjson::dom::array rows = parser.parse(padded);
  return rows.size();
}

void benchParsing(const QByteArray& body) {
  Times simdjson;
  Times ours;
  for (int i = 0; i < rounds; ++i) {
    simdjson.run([&] { mereParse(body); });
    // As it comes from the transport: unshared, with room for the reader.
    QByteArray own = body;
    own.reserve(body.size() + 64);
    std::optional<Catalog> catalog;
    ours.run([&] {
      catalog =
          parseCatalog(std::move(own), "[]", LibraryKind::movies, std::chrono::system_clock::now());
    });
  }
  const double ratio = ours.median() / simdjson.median();
  row("answer of " + std::to_string(body.size() / 1'000'000) + " MB, 90,000 rows -> catalogue",
      milliseconds(ours.median()), "simdjson parse " + milliseconds(simdjson.median()),
      factor(ratio) + " (3 x)", ratio <= 3);
}

void benchStored(const QByteArray& body) {
  const Catalog catalog = parse(body, LibraryKind::movies);
  const QTemporaryDir home;
  const QString path = home.filePath(u"library.bin"_s);
  const QByteArray key = sealed_box::randomBytes(sealed_box::keySize);
  Times simdjson;
  Times save;
  Times load;
  for (int i = 0; i < rounds; ++i) {
    simdjson.run([&] { mereParse(body); });
    save.run([&] {
      private_file::replace(path, sealed_box::seal(CatalogWriter::toJSON(catalog), key));
    });
    std::optional<Catalog> loaded;
    load.run([&] { loaded = catalogFromJSON(sealed_box::open(private_file::read(path), key)); });
  }
  const double ratio = load.median() / simdjson.median();
  row("encrypted copy of it -> catalogue", milliseconds(load.median()),
      "simdjson parse " + milliseconds(simdjson.median()), factor(ratio) + " (3 x)", ratio <= 3);
  row("saving the encrypted copy (on its worker)", milliseconds(save.median()), "", "", true);
  const double bytes = static_cast<double>(catalog.memory()) / static_cast<double>(catalog.size());
  row("memory of a loaded entry", std::to_string(static_cast<int>(bytes)) + " bytes",
      std::to_string(body.size() / static_cast<qsizetype>(catalog.size())) + " bytes of answer",
      "400 bytes", bytes <= 400);
}

double mainThreadMilliseconds() {
  timespec time = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

QCoro::Task<> fetchLibrary(std::stop_token stop, const ProviderClient* client,
                           std::optional<Catalog>* result, QEventLoop* waiting) {
  const QCoro::Task<Catalog> answered = client->catalog(LibraryKind::movies, stop);
  Catalog catalog = co_await answered;
  *result = catalog;
  waiting->quit();
}

void benchMainThread() {
  sim::Options options;
  options.movies = largeLibrary;
  options.streams = false;
  const sim::Server server(options);
  HTTPClient transport;
  Worker worker;
  const ProviderClient client(
      ProviderAccount::validated(QString(), QString::fromStdString(server.url()),
                                 QString::fromStdString(options.username),
                                 QString::fromStdString(options.password)),
      transport, worker);
  Times busy;
  Times whole;
  for (int i = 0; i < 5; ++i) {
    const auto begin = std::chrono::steady_clock::now();
    const double before = mainThreadMilliseconds();
    // Waits in the event loop, as the program does, so that only its own work counts.
    QEventLoop loop;
    std::optional<Catalog> catalog;
    const Job job = Job::start(
        [&](std::stop_token token) { return fetchLibrary(token, &client, &catalog, &loop); });
    loop.exec();
    busy.add(std::chrono::duration<double, std::milli>(mainThreadMilliseconds() - before));
    whole.add(std::chrono::steady_clock::now() - begin);
  }
  row("main thread busy while that library is fetched", milliseconds(busy.median()),
      "fetch and parse " + milliseconds(whole.median()), "8 ms", busy.median() < 8);
}

/// A list of 300 entries, from all over libraries in that order: what is made anew when it is
/// entered, at each keystroke in it, and when one is put in or taken out. `pass` is what a search
/// without any list takes, in milliseconds.
void benchChosen(const std::vector<Catalog>& libraries, double pass) {
  QStringList ids;
  for (const Catalog& library : libraries)
    for (std::size_t i = 0; i < 100; ++i) ids.append(library.id((i * 997 + 13) % library.size()));
  Times chosen;
  for (int i = 0; i < rounds; ++i) {
    ItemList list;
    chosen.run([&] {
      for (const LibraryKind kind : allLibraryKinds)
        list.append(kind, libraries[static_cast<std::size_t>(kind)], {QString(), folded("a")}, ids);
    });
  }
  const double ratio = chosen.median() / pass;
  row("300 entries of My list: enter, keystroke, toggle", milliseconds(chosen.median()),
      "memmem " + milliseconds(pass), factor(ratio) + " (0.1 x)", ratio <= 0.1);
}

/// The folded names of a catalogue as it holds them.
std::string foldedNames(const Catalog& catalog) {
  std::string names;
  for (std::size_t row = 0; row < catalog.size(); ++row)
    names.append(folded(catalog.name(row).toStdString())).append(1, '\xFF');
  return names;
}

/// Finds every place where `text` is.
std::size_t memmemPass(const std::vector<std::string>& names, const std::string& text) {
  std::size_t hits = 0;
  for (const std::string& all : names) {
    const char* place = all.data();
    const char* const end = place + all.size();
    while (const void* hit =
               memmem(place, static_cast<std::size_t>(end - place), text.data(), text.size())) {
      place = static_cast<const char*>(hit) + text.size();
      ++hits;
    }
  }
  return hits;
}

/// The text that takes longest. Each counts with the least processor time that it took: a few
/// milliseconds are easily doubled by what else the machine does.
struct Slowest {
  double time = 0;
  std::string text;
  void take(const Times& times, const std::string& of) {
    if (times.best() < time) return;
    time = times.best();
    text = of;
  }
};

template <class Work>
void runOnProcessor(Times& times, Work work) {
  const double before = mainThreadMilliseconds();
  work();
  times.add(std::chrono::duration<double, std::milli>(mainThreadMilliseconds() - before));
}

void benchSearch() {
  const std::vector<Catalog> catalogs = {
      parse(answer(sim::Kind::live, 57'000), LibraryKind::live),
      parse(answer(sim::Kind::movie, 178'000), LibraryKind::movies),
      parse(answer(sim::Kind::series, 48'000), LibraryKind::shows)};
  std::vector<std::string> names;
  for (const Catalog& catalog : catalogs) names.push_back(foldedNames(catalog));
  const auto search = [&](const std::string& text) {
    ItemList list;
    for (std::size_t i = 0; i < catalogs.size(); ++i)
      list.append(allLibraryKinds.at(i), catalogs[i], {QString(), text});
    return list;
  };
  const std::size_t entries = search("").size();
  Slowest whole;
  Slowest grown;
  Slowest bare;
  std::size_t hits = 0;
  for (const char* typed :
       {"", "a", "e", "th", "the", "the ", "the n", "er", "in", "xq", "night", "\xC3\xA9"}) {
    const std::string text = folded(typed);
    const ItemList before = search(text.substr(0, text.size() - !text.empty()));
    Times keystroke;
    Times growing;
    Times pass;
    for (int i = 0; i < 2 * rounds; ++i) {
      runOnProcessor(keystroke, [&] { hits += search(text).size(); });
      if (text.size() > 1) runOnProcessor(growing, [&] { hits += before.narrowed(text).size(); });
      if (!text.empty()) runOnProcessor(pass, [&] { hits += memmemPass(names, text); });
    }
    whole.take(keystroke, text);
    grown.take(growing, text);
    bare.take(pass, text);
  }
  const std::string against = "memmem " + milliseconds(bare.time) + " \"" + bare.text + "\"";
  const auto searchRow = [&](const std::string& what, const Slowest& slowest, double budget) {
    const double ratio = slowest.time / bare.time;
    row(what, milliseconds(slowest.time) + " \"" + slowest.text + "\"", against,
        factor(ratio) + " (" + factor(budget) + ")", ratio <= budget && hits > 0);
  };
  searchRow("a keystroke searching " + std::to_string(entries) + " entries", whole, 1.3);
  searchRow("the same when the text grows", grown, 0.25);
  benchChosen(catalogs, bare.time);
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  using namespace vantor::bench;
  const QByteArray movies = answer(sim::Kind::movie, largeLibrary);
  benchParsing(movies);
  benchStored(movies);
  benchMainThread();
  benchSearch();
  return 0;
}
