#pragma once

#include <QCoroTask>
#include <QImage>
#include <QString>
#include <stop_token>

namespace vantor {

class Clock;
class MediaEngine;
class Worker;

/// What taking a still of the current picture needs.
struct StillSource {
  MediaEngine* engine = nullptr;
  Clock* clock = nullptr;
  Worker* worker = nullptr;  // reads the image
  QString temporaryFolder;
};

/// The engine's current picture, 640 pixels wide, or a null image when it did not arrive within
/// about 180 milliseconds or the job was cancelled. Leaves no file behind.
QCoro::Task<QImage> captureStill(StillSource source, std::stop_token token);

}  // namespace vantor
