#include "ui/sign_in/connect_view.h"

#include "core/app_model.h"
#include "provider/error_wording.h"
#include "provider/vantor_configuration.h"

namespace vantor {

using namespace Qt::StringLiterals;

ConnectView::ConnectView(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  shownOrHidden();
  connect(&model, &AppModel::showingConnectChanged, this, &ConnectView::shownOrHidden);
  // The saved account may become known while the sheet is open.
  connect(&model.session(), &Session::accountChanged, this, [this] {
    if (shown_ && username_.isEmpty()) setUsername(savedUsername());
  });
  connect(&model.session(), &Session::signingInOrOutChanged, this, &ConnectView::workingChanged);
  connect(this, &ConnectView::workingChanged, this, &ConnectView::canConnectChanged);
  connect(this, &ConnectView::usernameChanged, this, &ConnectView::canConnectChanged);
  connect(this, &ConnectView::passwordChanged, this, &ConnectView::canConnectChanged);
}

bool ConnectView::working() const {
  return attempting_ || model_.session().signingInOrOut();
}

bool ConnectView::closable() const {
  return !model_.session().signingInOrOut();
}

bool ConnectView::canConnect() const {
  return !working() && !username_.isEmpty() && !password_.isEmpty();
}

QString ConnectView::savedUsername() const {
  return model_.session().account() ? model_.session().account()->username : QString();
}

void ConnectView::setUsername(const QString& username) {
  if (username_ == username) return;
  username_ = username;
  Q_EMIT usernameChanged();
}

void ConnectView::setPassword(const QString& password) {
  if (password_ == password) return;
  password_ = password;
  Q_EMIT passwordChanged();
}

void ConnectView::setError(const QString& error) {
  if (error_ == error) return;
  error_ = error;
  Q_EMIT errorChanged();
}

void ConnectView::setAttempting(bool attempting) {
  if (attempting_ == attempting) return;
  attempting_ = attempting;
  Q_EMIT workingChanged();
}

void ConnectView::shownOrHidden() {
  setPassword({});
  setError({});
  if (model_.showingConnect()) setUsername(savedUsername());
  if (shown_ == model_.showingConnect()) return;
  shown_ = model_.showingConnect();
  Q_EMIT shownChanged();
}

void ConnectView::close() {
  if (!closable()) return;
  connectTask_ = {};
  setAttempting(false);
  model_.setShowingConnect(false);
}

void ConnectView::connectAccount() {
  if (!canConnect()) return;
  setError({});
  setAttempting(true);
  connectTask_ =
      Job::start([self = QPointer(this), username = username_, password = password_](
                     std::stop_token stop) { return attempt(self, username, password, stop); });
}

QCoro::Task<> ConnectView::attempt(QPointer<ConnectView> self, QString username, QString password,
                                   std::stop_token stop) {
  if (!self || stop.stop_requested()) co_return;
  std::exception_ptr failure;
  try {
    const QCoro::Task<QString> resolving = self->model_.configuration().resolve(stop);
    const QString server = co_await resolving;
    if (!self || stop.stop_requested()) co_return;
    const ProviderAccount account =
        ProviderAccount::validated(u"Vantor TV"_s, server, username, password);
    const QCoro::Task<> connecting = self->model_.connectAccount(account, stop);
    co_await connecting;
  } catch (...) {
    failure = std::current_exception();
  }
  if (!self || stop.stop_requested()) co_return;
  if (failure)
    self->setError(readableError(failure));
  else
    self->setPassword({});
  self->setAttempting(false);
}

}  // namespace vantor
