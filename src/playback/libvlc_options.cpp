#include "playback/libvlc_options.h"

#include <QDir>
#include <QFile>
#include <algorithm>

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

// Yadif keeps every line of what stands still, where bob shows half of them in turns, for half as
// much again of a processor. Where there are two, the drawing needs that.
constexpr unsigned processorsForYadif = 4;

bool hasControlCharacter(const QString& text) {
  return std::any_of(text.begin(), text.end(),
                     [](QChar c) { return c.category() == QChar::Other_Control; });
}

}  // namespace

AudioOutput availableAudio() {
  if (qgetenv("VANTOR_AUDIO") == "none") return AudioOutput::none;
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (!qEnvironmentVariableIsEmpty("PULSE_SERVER") ||
      (!runtime.isEmpty() && QFile::exists(runtime + u"/pulse/native"_s)))
    return AudioOutput::server;
  // PipeWire alone looks like a card.
  const bool card = !QDir(u"/dev/snd"_s).entryList({u"pcm*p"_s}, QDir::System).isEmpty() ||
                    (!runtime.isEmpty() && QFile::exists(runtime + u"/pipewire-0"_s));
  return card ? AudioOutput::card : AudioOutput::none;
}

QList<QByteArray> libraryOptions(Output output, unsigned processors) {
  // Its own choice, "x", shows one picture of the two fields.
  const bool plenty = processors >= processorsForYadif;
  QList<QByteArray> options{"--quiet",
                            "--no-video-title-show",
                            "--no-osd",
                            "--network-caching=" + QByteArray::number(networkCaching),
                            "--file-caching=500",
                            plenty ? "--deinterlace-mode=yadif2x" : "--deinterlace-mode=bob"};
  if (output == Output::discarded) options += {"--vout=dummy", "--aout=dummy", "--avcodec-hw=none"};
  return options;
}

QList<QByteArray> mediaOptions(const MediaSource& source) {
  QList<QByteArray> options;
  if (!hasControlCharacter(source.userAgent))
    options += ":http-user-agent=" + source.userAgent.toUtf8();
  options += ":network-caching=" + QByteArray::number(networkCaching);
  return options;
}

}  // namespace vantor
