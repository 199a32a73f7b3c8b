#include "platform/job.h"

#include "platform/pending.h"
#include "platform/trace.h"

namespace vantor {

Job Job::start(Body body) {
  Job job;
  job.state_ = std::make_shared<State>();
  drive(job.state_, std::move(body));
  return job;
}

Job& Job::operator=(Job&& other) noexcept {
  // The stop may lead back here, which then finds the new job.
  Job old;
  old.state_ = std::exchange(state_, std::move(other.state_));
  return *this;
}

void Job::cancel() {
  if (state_) state_->source.request_stop();
}

bool Job::running() const {
  return state_ && !state_->finished;
}

QCoro::Task<> Job::drive(std::shared_ptr<State> state, Body body) {
  Pending<Done> turn;
  turn.resolve({});
  co_await turn;
  const Attempt attempt(sessionTrace, "a job");
  try {
    const QCoro::Task<> task = body(state->source.get_token());
    co_await task;
  } catch (...) {
    // The body's to report; see the class comment.
    attempt.failed();
  }
  state->finished = true;
}

}  // namespace vantor
