#include "net/bounded_transfer.h"

#include <QNetworkReply>
#include <QNetworkRequest>

#include "net/redirect_rule.h"
#include "platform/app_error.h"

namespace vantor {
namespace {

constexpr int maximumRedirects = 20;
constexpr qint64 pieceSize = 256 * 1024;  // bytes
// Room that the JSON reader wants behind the body, so that it need not copy it.
constexpr qsizetype padding = 64;

void abandon(QNetworkReply* reply) {
  reply->disconnect();
  reply->abort();
  reply->deleteLater();
}

}  // namespace

BoundedTransfer::BoundedTransfer(std::int64_t limit, TransferTimes times,
                                 std::shared_ptr<Promise<QByteArray>> body)
    : limit_(limit), times_(times), outcome_{std::move(body)}, reply_(nullptr, abandon) {
  withoutData_.setSingleShot(true);
  inAll_.setSingleShot(true);
  const auto timeOut = [this] {
    fail(std::make_exception_ptr(URLError(URLError::Code::timedOut)));
  };
  connect(&withoutData_, &QTimer::timeout, this, timeOut);
  connect(&inAll_, &QTimer::timeout, this, timeOut);
}

BoundedTransfer::~BoundedTransfer() {
  onFinished = nullptr;
  cancel();
}

BoundedTransfer::Outcome::~Outcome() {
  if (failure)
    promise->fail(failure);
  else
    promise->resolve(std::move(body));
}

void BoundedTransfer::start(const HTTPRequest& request) {
  request_ = request;
  const QString scheme = request.address.scheme();
  if (scheme != QLatin1String("http") && scheme != QLatin1String("https")) {
    fail(std::make_exception_ptr(AppError(
        AppError::tr("The provider could not complete the request. Check your account or try "
                     "again later."))));
    return;
  }
  withoutData_.setInterval(std::min(times_.withoutData, request.timeout));
  inAll_.start(times_.inAll);
  send(request.address);
}

void BoundedTransfer::send(const QUrl& address) {
  QNetworkRequest request(address);
  request.setRawHeader("User-Agent", request_.userAgent);
  // Said by us, Qt leaves the unpacking to us. It would unpack all that a piece becomes in one go,
  // which nothing ends.
  request.setRawHeader("Accept-Encoding", acceptedEncodings);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  bytes_.clear();
  unpacking_.reset();
  packedBegun_ = false;
  status_ = 0;
  reply_.reset(session_.get(request));
  // Keeps a fast server from filling memory ahead of the limit.
  reply_->setReadBufferSize(4 * pieceSize);
  connect(reply_.get(), &QNetworkReply::metaDataChanged, this, &BoundedTransfer::receiveHead);
  connect(reply_.get(), &QNetworkReply::readyRead, this, &BoundedTransfer::receiveData);
  connect(reply_.get(), &QNetworkReply::finished, this, &BoundedTransfer::complete);
  withoutData_.start();
}

void BoundedTransfer::receiveHead() {
  if (finished_) return;
  withoutData_.start();
  status_ = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (followsRedirect()) {
    ++redirects_;
    const QUrl target = reply_->url().resolved(QUrl::fromEncoded(reply_->rawHeader("Location")));
    send(target);
    return;
  }
  unpacking_ = Unpacking::of(reply_->rawHeader("Content-Encoding"));
  const QVariant length = reply_->header(QNetworkRequest::ContentLengthHeader);
  if (!length.isValid()) return;
  if (length.toLongLong() > limit_) {
    fail(std::make_exception_ptr(OversizedBody()));
    return;
  }
  bytes_.reserve(length.toLongLong() + padding);
}

void BoundedTransfer::receiveData() {
  if (finished_) return;
  withoutData_.start();
  if (!unpacking_) {
    const auto read = [this](char* room, qsizetype size) { return reply_->read(room, size); };
    while (append(read) > 0) continue;
    return;
  }
  while (!finished_) {
    const QByteArray piece = reply_->read(pieceSize);
    if (piece.isEmpty()) return;
    packedBegun_ = true;
    QByteArrayView packed(piece);
    const auto unpack = [this, &packed](char* room, qsizetype size) {
      return unpacking_->unpack(packed, room, size);
    };
    qsizetype unpacked = pieceSize;
    while (unpacked == pieceSize && !finished_) unpacked = append(unpack);
    if (unpacked < 0) fail(std::make_exception_ptr(URLError(URLError::Code::unreachable)));
  }
}

/// Has `write` fill the room behind the body and returns what it returns.
template <class Write>
qsizetype BoundedTransfer::append(const Write& write) {
  const qsizetype held = bytes_.size();
  if (bytes_.capacity() < held + pieceSize + padding && bytes_.capacity() > 0)
    bytes_.reserve(std::max(bytes_.capacity() * 2, held + pieceSize + padding));
  bytes_.resize(held + pieceSize);
  const qsizetype written = write(bytes_.data() + held, pieceSize);
  bytes_.resize(held + std::max<qsizetype>(written, 0));
  if (bytes_.size() > limit_)
    fail(std::make_exception_ptr(
        OversizedBody(AppError::tr("The provider response is too large."))));
  return finished_ ? 0 : written;
}

bool BoundedTransfer::followsRedirect() {
  const QByteArray location = reply_->rawHeader("Location");
  return status_ >= 300 && status_ < 400 && !location.isEmpty() && redirects_ < maximumRedirects &&
         redirectIsAllowed(request_.address, location);
}

void BoundedTransfer::complete() {
  if (finished_) return;
  receiveData();
  if (finished_) return;
  const bool incomplete = packedBegun_ && !unpacking_->ended();
  const bool brokenOff =
      status_ >= 200 && status_ <= 299 && (reply_->error() != QNetworkReply::NoError || incomplete);
  if (status_ == 0 || brokenOff) {
    fail(std::make_exception_ptr(URLError(URLError::Code::unreachable)));
  } else if (status_ < 200 || status_ > 299) {
    fail(std::make_exception_ptr(HTTPFailure(status_)));
  } else {
    finish(std::move(bytes_));
  }
}

void BoundedTransfer::cancel() {
  fail(std::make_exception_ptr(URLError(URLError::Code::cancelled)));
}

void BoundedTransfer::finish(QByteArray bytes) {
  if (finished_) return;
  outcome_.body = std::move(bytes);
  end();
}

void BoundedTransfer::fail(std::exception_ptr error) {
  if (finished_) return;
  outcome_.failure = std::move(error);
  end();
}

void BoundedTransfer::end() {
  finished_ = true;
  withoutData_.stop();
  inAll_.stop();
  reply_.reset();
  if (onFinished) onFinished();
}

}  // namespace vantor
