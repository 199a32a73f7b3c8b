#include "diagnosis/report.h"
#include "diagnosis/sections.h"
#include "playback/libvlc_findings.h"
#include "playback/libvlc_options.h"

namespace vantor::sections {
namespace {

using namespace Qt::StringLiterals;

QString sentence(AudioOutput output) {
  switch (output) {
    case AudioOutput::server:
      return u"goes to a PulseAudio server"_s;
    case AudioOutput::card:
      return u"goes to a sound card"_s;
    case AudioOutput::none:
      break;
  }
  return qgetenv("VANTOR_AUDIO") == "none" ? u"off by VANTOR_AUDIO"_s
                                           : u"off: neither a server nor a card"_s;
}

/// libpulse makes folders for itself.
void keepFoldersAway() {
  for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH"})
    qputenv(variable, "/dev/null/none");
}

}  // namespace

void tellEngine(Report& report, int&, char**) {
  report.say(u"sound"_s, sentence(availableAudio()));
  keepFoldersAway();
  const LibVLCFindings findings = lookAtLibVLC();
  if (!findings.starts) {
    report.say(u"libVLC"_s, u"does not start: its plugins are missing"_s);
    return;
  }
  report.say(u"plugins that are missing"_s, findings.missing.isEmpty()
                                                ? u"none"_s
                                                : QString::fromUtf8(findings.missing.join(", ")));
  if (findings.outputs.isEmpty()) report.say(u"sound outputs of libVLC"_s, u"none"_s);
  for (const auto& [name, devices] : findings.outputs)
    report.say(
        u"sound output "_s + QString::fromUtf8(name),
        devices.isEmpty() ? u"chooses its device itself"_s : QString::fromUtf8(devices.join(", ")));
}

}  // namespace vantor::sections
