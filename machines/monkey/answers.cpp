#include "machines/monkey/answers.h"

#include <QBuffer>
#include <QImage>
#include <array>

#include "support/model_fixture.h"

namespace vantor::monkey {
namespace {

using namespace Qt::StringLiterals;
using Exchange = test::FakeTransport::Exchange;

constexpr std::array lengths{0, 1, 2, 7, 40, 60, 300, 3000};

/// Names that are hard to show come among the others.
QByteArray name(int number) {
  static const std::array<QByteArray, 6> odd = {"",
                                                "two\\nlines",
                                                "\\u202eright to left",
                                                "<b>bold</b> &amp;",
                                                QByteArray(400, 'W'),
                                                "\\ud83d\\ude00"};
  if (number % 9 == 0) return odd.at(static_cast<std::size_t>(number / 9) % odd.size());
  return "Title " + QByteArray::number(number);
}

QByteArray rows(LibraryKind kind, int count) {
  const bool shows = kind == LibraryKind::shows;
  QByteArray json = "[";
  for (int i = 1; i <= count; ++i) {
    const QByteArray number = QByteArray::number(i);
    if (i > 1) json += ',';
    json += QByteArray("{\"") + (shows ? "series_id" : "stream_id") + "\":" + number +
            ",\"name\":\"" + name(i) + "\",\"category_id\":\"" + QByteArray::number(i % 3) +
            "\",\"" + (shows ? "cover" : "stream_icon") + "\":\"" +
            (i % 4 == 0 ? "http://art.example/" + number + ".png" : QByteArray()) + "\"}";
  }
  return json + ']';
}

QByteArray categories(int count) {
  QByteArray json = "[";
  for (int i = 0; i < count % 50; ++i)
    json += QByteArray(i ? "," : "") + "{\"category_id\":\"" + QByteArray::number(i) +
            "\",\"category_name\":\"" + name(i) + "\"}";
  return json + ']';
}

QByteArray episodes(int count) {
  QByteArray json = R"({"episodes":{)";
  for (int season = 1; season <= std::min(count, 3); ++season) {
    json += QByteArray(season > 1 ? "," : "") + '"' + QByteArray::number(season) + "\":[";
    for (int i = 1; i <= std::min(count, 20); ++i)
      json += QByteArray(i > 1 ? "," : "") + "{\"id\":\"" + QByteArray::number(100 * season + i) +
              "\",\"episode_num\":" + QByteArray::number(i) + ",\"title\":\"" + name(i) + "\"}";
    json += ']';
  }
  return json + "}}";
}

/// Programmes around the beginning of a run, when the clock has not been set.
QByteArray programmes(int count) {
  QByteArray json = R"({"epg_listings":[)";
  for (int i = 0; i < std::min(count, 60); ++i) {
    const int start = 1'800'000'000 + (i - 2) * 1800;
    json += QByteArray(i ? "," : "") + "{\"title\":\"" + name(i).toBase64() +
            "\",\"start_timestamp\":" + QByteArray::number(start) +
            ",\"stop_timestamp\":" + QByteArray::number(start + 1800) + "}";
  }
  return json + "]}";
}

QByteArray picture() {
  QImage image(60, 90, QImage::Format_RGB32);
  image.fill(Qt::darkCyan);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes;
}

QByteArray goodAnswer(const Exchange& exchange, int count) {
  const QString& action = exchange.action;
  for (const LibraryKind kind : allLibraryKinds) {
    if (action == vantor::action(kind)) return rows(kind, count);
    if (action == categoryAction(kind)) return categories(count);
  }
  if (action == "get_series_info"_L1) return episodes(count);
  if (action == "get_short_epg"_L1) return programmes(count);
  if (action.endsWith(".png"_L1)) return picture();
  if (action.endsWith(".json"_L1))
    return QByteArray(R"({"schemaVersion":1,"serverUrl":"http://tv)") + (count % 2 ? "2" : "") +
           R"(.example"})";
  return action.isEmpty() ? test::ModelFixture::acceptedSignIn() : QByteArray();
}

}  // namespace

void endWell(Exchange& exchange, int count) {
  exchange.over = true;
  exchange.answer.resolve(goodAnswer(exchange, count));
}

void end(Exchange& exchange, std::uint32_t choice) {
  const auto fail = [&](auto error) {
    exchange.over = true;
    exchange.answer.fail(std::make_exception_ptr(std::move(error)));
  };
  const auto say = [&](const QByteArray& body) {
    exchange.over = true;
    exchange.answer.resolve(body);
  };
  switch (choice % 20) {
    case 0:
      return fail(HTTPFailure(500));
    case 1:
      return fail(HTTPFailure(choice / 20 % 2 ? 401 : 404));
    case 2:
      return fail(URLError(URLError::Code::timedOut));
    case 3:
      return fail(URLError(URLError::Code::unreachable));
    case 4:
      return fail(OversizedBody());
    case 5:
      return say("[]");
    case 6:
      return say("<html>no</html>");
    case 7:
      return say("");
    case 8:
      return say(R"({"user_info":{"auth":0}})");
    default:
      return endWell(exchange, lengths.at(choice / 20 % lengths.size()));
  }
}

bool isForStream(const Exchange& exchange) {
  const QString path = exchange.request.address.path();
  return path.startsWith("/live/"_L1) || path.startsWith("/movie/"_L1) ||
         path.startsWith("/series/"_L1);
}

}  // namespace vantor::monkey
