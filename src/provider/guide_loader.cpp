#include "provider/guide_loader.h"

#include <QHash>
#include <algorithm>
#include <vector>

#include "platform/cancelled.h"
#include "platform/job.h"
#include "platform/pending.h"
#include "platform/slot.h"

namespace vantor {

struct GuideLoader::Load {
  Job job;
  std::vector<Pending<GuideEntries>> callers;
};

struct GuideLoader::State {
  struct Saved {
    WallTime at;
    GuideEntries entries;
  };

  ProviderClient client;
  Clock& clock;
  QHash<QString, Saved> saved;                    // by channel id
  QHash<QString, std::shared_ptr<Load>> running;  // by channel id
  int active = 0;                                 // requests in flight

  const Saved* fresh(const QString& id) const {
    const auto known = saved.constFind(id);
    if (known == saved.constEnd()) return nullptr;
    // Wall time goes on while the machine sleeps. A clock that was set back says nothing.
    const auto age = clock.now() - known->at;
    return age >= age.zero() && age < freshness ? &*known : nullptr;
  }

  void save(const QString& id, const GuideEntries& entries) {
    if (static_cast<std::size_t>(saved.size()) >= savedCapacity)
      saved.erase(std::min_element(saved.begin(), saved.end(),
                                   [now = clock.now()](const Saved& a, const Saved& b) {
                                     return keptSince(a.at, now) < keptSince(b.at, now);
                                   }));
    saved.insert(id, {clock.now(), entries});
  }
};

GuideLoader::GuideLoader(ProviderClient client, Clock& clock)
    : state_(new State{std::move(client), clock, {}, {}}) {}

GuideLoader::~GuideLoader() {
  clear();
}

QCoro::Task<GuideEntries> GuideLoader::load(const MediaItem& channel, std::stop_token token) {
  return join(state_, channel, token);
}

QCoro::Task<GuideEntries> GuideLoader::join(std::shared_ptr<State> state, MediaItem channel,
                                            std::stop_token token) {
  throwIfStopped(token);
  if (const State::Saved* saved = state->fresh(channel.id)) co_return saved->entries;
  std::shared_ptr<Load> load = state->running.value(channel.id);
  if (!load) {
    if (static_cast<std::size_t>(state->running.size()) >= runningCapacity) throw Cancelled();
    load = std::make_shared<Load>();
    state->running.insert(channel.id, load);
    load->job = Job::start(
        [state, load, channel](std::stop_token stop) { return run(state, load, channel, stop); });
  }
  const Pending<GuideEntries> result;
  load->callers.push_back(result);
  const std::stop_callback onStop(token,
                                  [result] { result.fail(std::make_exception_ptr(Cancelled())); });
  GuideEntries entries = co_await result;
  co_return entries;
}

QCoro::Task<> GuideLoader::run(std::shared_ptr<State> state, std::shared_ptr<Load> load,
                               MediaItem channel, std::stop_token stop) {
  GuideEntries entries;
  std::exception_ptr failure;
  try {
    while (state->active >= requestSlots) {
      const QCoro::Task<> pause = state->clock.sleep(waitStep, stop);
      co_await pause;
      throwIfStopped(stop);
    }
    throwIfStopped(stop);
    const Slot slot(state->active);
    const QCoro::Task<GuideEntries> answered = state->client.guide(channel, stop);
    entries = co_await answered;
  } catch (...) {
    failure = std::current_exception();
  }
  // A load that was cleared away has told its callers, and its channel may be loading anew.
  if (state->running.value(channel.id) != load) co_return;
  state->running.remove(channel.id);
  if (!failure) state->save(channel.id, entries);
  for (const Pending<GuideEntries>& caller : load->callers) {
    if (failure)
      caller.fail(failure);
    else
      caller.resolve(entries);
  }
}

void GuideLoader::clear() {
  const auto cancelled = std::exchange(state_->running, {});
  state_->saved.clear();
  for (const std::shared_ptr<Load>& load : cancelled) {
    load->job.cancel();
    for (const Pending<GuideEntries>& caller : load->callers)
      caller.fail(std::make_exception_ptr(Cancelled()));
  }
}

}  // namespace vantor
