#include "playback/libvlc_findings.h"

#include <vlc_common.h>
#include <vlc_modules.h>

#include <QRegularExpression>

#include "playback/libvlc_handles.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

// What channels, films and the window's picture go through.
constexpr const char* needed[] = {"http",    "filesystem", "ts",   "mp4",   "mkv", "adaptive",
                                  "avcodec", "swscale",    "vmem", "pulse", "alsa"};

QByteArrayList cardsOf(libvlc_instance_t* library, const char* output) {
  static const QRegularExpression card(u"^[a-z0-9]+:CARD=[A-Za-z0-9_-]+(,DEV=[0-9]+)?$"_s);
  QByteArrayList names;
  const LibVLCHandle<libvlc_audio_output_device_t> first(
      libvlc_audio_output_device_list_get(library, output));
  for (const auto* device = first.get(); device; device = device->p_next)
    if (card.match(QString::fromUtf8(device->psz_device)).hasMatch())
      names.append(device->psz_device);
  return names;
}

}  // namespace

QByteArray libVLCVersion() {
  return libvlc_get_version();
}

LibVLCFindings lookAtLibVLC() {
  LibVLCFindings findings;
  const char* const options[] = {"--quiet"};
  const LibVLCHandle<libvlc_instance_t> library(libvlc_new(1, options));
  if (!library) return findings;
  findings.starts = true;
  for (const char* plugin : needed)
    if (!module_exists(plugin)) findings.missing.append(plugin);
  const LibVLCHandle<libvlc_audio_output_t> first(libvlc_audio_output_list_get(library.get()));
  for (const auto* output = first.get(); output; output = output->p_next)
    findings.outputs.append({output->psz_name, cardsOf(library.get(), output->psz_name)});
  return findings;
}

}  // namespace vantor
