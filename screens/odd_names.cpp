#include "odd_names.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace vantor::screens {

using namespace Qt::StringLiterals;

namespace {

QStringList oddNames() {
  QString endless = u"Word after word "_s.repeated(625);
  return {u"A name so long that no column of any television guide has ever had the room for it"_s,
          endless,
          u"Donaudampfschifffahrtselektrizitätenhauptbetriebswerkbauunterbeamtengesellschaft"_s,
          u"قناة الأخبار العربية على مدار الساعة"_s,
          u"ערוץ הילדים"_s,
          u"World 🌍 News"_s,
          u"👨‍👩‍👧‍👦🎄🚀"_s,
          u"日本放送協会 総合テレビ"_s,
          u"<b>Bold</b> & <img src=x>"_s,
          u"Line\nbreak and\ttab"_s,
          u"Left \u202Eright to left\u202C again"_s,
          u"Z̸̢͌a̷l̴g̵o̶"_s,
          u" "_s,
          u"1"_s};
}

}  // namespace

std::string oddRows(sim::Kind kind, const std::string& base) {
  QJsonArray rows;
  int id = 1001;
  for (const QString& name : oddNames()) {
    QJsonObject row{{u"name"_s, name},
                    {u"category_id"_s, u"1"_s},
                    {u"plot"_s, name.repeated(3).left(20'000)},
                    {u"year"_s, u"2024"_s},
                    {u"rating"_s, u"7.4"_s},
                    {u"container_extension"_s, u"mp4"_s}};
    const QString poster =
        QString::fromStdString(base) +
        u"/poster/%1/%2.png"_s.arg(QString::fromUtf8(sim::kindName(kind).data())).arg(id);
    row.insert(kind == sim::Kind::series ? u"cover"_s : u"stream_icon"_s, poster);
    row.insert(kind == sim::Kind::series ? u"series_id"_s : u"stream_id"_s, id++);
    rows.append(row);
  }
  return QJsonDocument(rows).toJson(QJsonDocument::Compact).toStdString();
}

}  // namespace vantor::screens
