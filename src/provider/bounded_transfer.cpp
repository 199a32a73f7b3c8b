#include "provider/bounded_transfer.h"

#include <QNetworkReply>
#include <QNetworkRequest>

#include "provider/error_wording.h"
#include "provider/redirect_rule.h"

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

BoundedTransfer::BoundedTransfer(std::int64_t limit, TransferTimes times, Pending<QByteArray> body)
    : limit_(limit), times_(times), body_(std::move(body)), reply_(nullptr, abandon) {
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

void BoundedTransfer::start(const HTTPRequest& request) {
  request_ = request;
  const QString scheme = request.address.scheme();
  if (scheme != QLatin1String("http") && scheme != QLatin1String("https")) {
    fail(std::make_exception_ptr(AppError(
        QStringLiteral("The provider could not complete the request. Check your account or try "
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
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  // Our own limit holds for the decompressed bytes.
  request.setDecompressedSafetyCheckThreshold(-1);
  bytes_.clear();
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
  const QVariant length = reply_->header(QNetworkRequest::ContentLengthHeader);
  if (!length.isValid()) return;
  if (length.toLongLong() > limit_) {
    fail(std::make_exception_ptr(AppError(
        QStringLiteral("The provider response is larger than this preview can safely load."))));
    return;
  }
  bytes_.reserve(length.toLongLong() + padding);
}

void BoundedTransfer::receiveData() {
  if (finished_) return;
  withoutData_.start();
  for (;;) {
    const qsizetype held = bytes_.size();
    if (bytes_.capacity() < held + pieceSize + padding && bytes_.capacity() > 0)
      bytes_.reserve(std::max(bytes_.capacity() * 2, held + pieceSize + padding));
    bytes_.resize(held + pieceSize);
    const qint64 received = reply_->read(bytes_.data() + held, pieceSize);
    bytes_.resize(held + std::max<qint64>(received, 0));
    if (received <= 0) return;
    if (bytes_.size() > limit_) {
      fail(
          std::make_exception_ptr(AppError(QStringLiteral("The provider response is too large."))));
      return;
    }
  }
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
  const bool brokenOff =
      status_ >= 200 && status_ <= 299 && reply_->error() != QNetworkReply::NoError;
  if (status_ == 0 || brokenOff) {
    fail(std::make_exception_ptr(URLError(URLError::Code::unreachable)));
  } else if (followsRedirect()) {
    ++redirects_;
    const QUrl target = reply_->url().resolved(QUrl::fromEncoded(reply_->rawHeader("Location")));
    send(target);
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
  body_.resolve(std::move(bytes));
  end();
}

void BoundedTransfer::fail(std::exception_ptr error) {
  if (finished_) return;
  body_.fail(std::move(error));
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
