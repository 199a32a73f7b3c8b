#include "sim/broadcast.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace sim {
namespace {

constexpr std::size_t packetSize = 188;
constexpr int streams = 8192;
constexpr std::uint64_t ticksPerSecond = 90'000;
constexpr std::uint64_t timestampMask = (std::uint64_t{1} << 33) - 1;

using Byte = unsigned char;

int streamOf(const Byte* packet) {
  return (packet[1] & 0x1f) << 8 | packet[2];
}
bool startsUnit(const Byte* packet) {
  return packet[1] & 0x40;
}
bool hasPayload(const Byte* packet) {
  return packet[3] & 0x10;
}
bool hasAdaptation(const Byte* packet) {
  return packet[3] & 0x20;
}

std::size_t payloadOffset(const Byte* packet) {
  return hasAdaptation(packet) ? std::size_t{5} + packet[4] : 4;
}

// The header of a unit of sound or picture that starts in the packet.
Byte* unitHeader(Byte* packet) {
  const auto offset = payloadOffset(packet);
  if (!startsUnit(packet) || !hasPayload(packet) || offset + 19 > packetSize) return nullptr;
  auto* header = packet + offset;
  return header[0] == 0 && header[1] == 0 && header[2] == 1 ? header : nullptr;
}

// 33 bits in five bytes, with marker bits between them.
void shiftTimestamp(Byte* field, std::uint64_t ticks) {
  std::uint64_t value = std::uint64_t{field[0]} >> 1 & 7;
  value = value << 8 | field[1];
  value = value << 7 | field[2] >> 1;
  value = value << 8 | field[3];
  value = value << 7 | field[4] >> 1;
  value = (value + ticks) & timestampMask;
  field[0] = static_cast<Byte>((field[0] & 0xf1) | (value >> 30 & 7) << 1);
  field[1] = static_cast<Byte>(value >> 22);
  field[2] = static_cast<Byte>((value >> 15 & 0x7f) << 1 | 1);
  field[3] = static_cast<Byte>(value >> 7);
  field[4] = static_cast<Byte>((value & 0x7f) << 1 | 1);
}

void shiftClock(Byte* packet, std::uint64_t ticks) {
  if (!hasAdaptation(packet) || packet[4] < 7 || !(packet[5] & 0x10)) return;
  auto* field = packet + 6;
  std::uint64_t value = field[4] >> 7;
  for (int i = 0; i < 4; ++i) value |= std::uint64_t{field[i]} << (25 - 8 * i);
  value = (value + ticks) & timestampMask;
  for (int i = 0; i < 4; ++i) field[i] = static_cast<Byte>(value >> (25 - 8 * i));
  field[4] = static_cast<Byte>((field[4] & 0x7f) | (value & 1) << 7);
}

}  // namespace

Broadcast::Broadcast(const std::string& file) : packets_(streams) {
  std::ifstream input(file, std::ios::binary);
  bytes_.assign(std::istreambuf_iterator<char>(input), {});
  auto* data = reinterpret_cast<Byte*>(bytes_.data());
  // Tables that come right in front of a picture belong to it.
  std::optional<std::size_t> tables;
  for (std::size_t at = 0; at + packetSize <= bytes_.size(); at += packetSize) {
    auto* packet = data + at;
    if (packet[0] != 0x47) throw std::runtime_error("not a transport stream: " + file);
    if (hasPayload(packet)) ++packets_[static_cast<std::size_t>(streamOf(packet))];
    if (streamOf(packet) == 0 && !tables) tables = at;
    const auto* unit = unitHeader(packet);
    if (unit == nullptr) continue;
    if (unit[3] >> 4 == 0xe) starts_.push_back(starts_.empty() ? 0 : tables.value_or(at));
    tables.reset();
  }
  if (starts_.empty() || starts_.size() % picturesPerSegment != 0) {
    throw std::runtime_error("unexpected number of pictures: " + file);
  }
  starts_.push_back(bytes_.size());
}

std::string Broadcast::picture(std::int64_t number) const {
  const auto pictures = static_cast<std::int64_t>(starts_.size() - 1);
  const auto loop = static_cast<std::uint64_t>(number / pictures);
  const auto position = static_cast<std::size_t>(number % pictures);
  const auto ticks =
      loop * static_cast<std::uint64_t>(pictures) * ticksPerSecond / picturesPerSecond;

  std::string piece = bytes_.substr(starts_[position], starts_[position + 1] - starts_[position]);
  for (std::size_t at = 0; at + packetSize <= piece.size(); at += packetSize) {
    auto* packet = reinterpret_cast<Byte*>(piece.data()) + at;
    const auto counted = loop * packets_[static_cast<std::size_t>(streamOf(packet))];
    packet[3] = static_cast<Byte>((packet[3] & 0xf0) | ((packet[3] + counted) & 0x0f));
    shiftClock(packet, ticks);
    auto* unit = unitHeader(packet);
    if (unit == nullptr) continue;
    if (unit[7] & 0x80) shiftTimestamp(unit + 9, ticks);
    if ((unit[7] & 0xc0) == 0xc0) shiftTimestamp(unit + 14, ticks);
  }
  return piece;
}

std::string Broadcast::segment(std::int64_t number) const {
  std::string bytes;
  for (int i = 0; i < picturesPerSegment; ++i) bytes += picture(number * picturesPerSegment + i);
  return bytes;
}

}  // namespace sim
