#include "web_server.h"

#include <httplib.h>
#include <sys/socket.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <utility>

namespace serve {
namespace {

constexpr std::size_t kLargestForm = 8'000'000;
constexpr int kPatienceSeconds = 5;
constexpr int kIdleSeconds = 2;
constexpr std::size_t kRequestsOfConnection = 10'000;

constexpr const char* kPolicy =
    "default-src 'self'; form-action 'self'; base-uri 'none'; frame-ancestors 'self'";

Request ReadRequest(const httplib::Request& request) {
  return {request.method, request.target, {}, {request.headers.begin(), request.headers.end()}};
}

/// The library would send parts of a page with the status of a whole one, and one page hundreds of times.
void IgnoreRanges(const httplib::Request& request) { const_cast<httplib::Request&>(request).ranges.clear(); }

/// The library prefers Brotli at its slowest, which takes hundreds of times as long as making the page.
void OfferGzipOnly(const httplib::Request& request) {
  constexpr const char* kName = "Accept-Encoding";
  const bool takes_gzip = request.get_header_value(kName).find("gzip") != std::string::npos;
  httplib::Headers& headers = const_cast<httplib::Request&>(request).headers;
  headers.erase(kName);
  if (takes_gzip) headers.emplace(kName, "gzip");
}

/// Whether something follows the headers of a request that should have nothing there.
bool HasBody(const httplib::Request& request) {
  const std::string length = request.get_header_value("Content-Length");
  return request.has_header("Transfer-Encoding") || (!length.empty() && length != "0");
}

/// Takes the piece of an answer that follows, empty behind the last one. False when the answer has failed:
/// the client sees that its end is missing.
bool TakeNext(dralo::PageStream* rest, std::string_view& piece) {
  try {
    piece = rest == nullptr ? std::string_view() : rest->Next();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

/// After the last answer of a connection nothing is read from it: what has come behind the request would be
/// taken for another one, which nobody in front of this server has seen.
enum class Turn { kAnyAnswer, kLastAnswer };

void Send(Answer answer, Turn turn, httplib::Response& response) {
  response.status = answer.status;
  for (const auto& [name, value] : answer.headers) response.set_header(name, value);
  if (turn == Turn::kLastAnswer) response.set_header("Connection", "close");
  if (answer.rest == nullptr && turn == Turn::kAnyAnswer) {
    // Not set_content(), which copies it.
    response.body = std::move(answer.body);
    response.set_header("Content-Type", answer.type);
    return;
  }
  const auto provide = [begin = std::move(answer.body), rest = std::move(answer.rest), turn](
                           std::size_t at, httplib::DataSink& sink) {
    std::string_view piece = begin;
    if (at > 0 && !TakeNext(rest.get(), piece)) return false;
    if (!piece.empty()) return sink.write(piece.data(), piece.size());
    sink.done();
    // The library closes a connection for an answer that has failed, but not for the header.
    return turn == Turn::kAnyAnswer;
  };
  response.set_chunked_content_provider(answer.type, provide);
}

/// Whether the form could be read. A form of another kind is read too, and dropped: otherwise the rest of it
/// would be taken for the next request.
bool ReadForm(const httplib::Request& request, const httplib::ContentReader& read, std::string& form) {
  if (request.is_multipart_form_data()) {
    return read([](const httplib::MultipartFormData&) { return true; },
                [](const char*, std::size_t) { return true; });
  }
  return read([&](const char* data, std::size_t size) {
    form.append(data, size);
    return true;
  });
}

std::string WhyNotBound(const std::string& host, int port, int error) {
  const std::string place = host + " port " + std::to_string(port);
  if (error == EADDRINUSE) return "port " + std::to_string(port) + " is in use; choose another by --port";
  if (error == EACCES) return place + " is not allowed to you; choose a port from 1024 on by --port";
  return "nothing can listen on " + place + "; write an address of this machine, or 0.0.0.0, behind --host";
}

}  // namespace

class WebServer::Implementation {
 public:
  explicit Implementation(std::function<Answer(const Request&)> respond) : respond_(std::move(respond)) {
    // By default SO_REUSEPORT is set, with which two servers on one port would share its visitors.
    server_.set_socket_options([this](auto socket) {
      socket_ = socket;
      const int yes = 1;
      setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    server_.new_task_queue = [] { return new httplib::ThreadPool(kMostClients); };
    server_.set_payload_max_length(kLargestForm);
    server_.set_keep_alive_timeout(kIdleSeconds);
    server_.set_keep_alive_max_count(kRequestsOfConnection);
    server_.set_read_timeout(kPatienceSeconds);
    server_.set_write_timeout(kPatienceSeconds);
    server_.set_tcp_nodelay(true);
    server_.set_default_headers({{"Content-Security-Policy", kPolicy},
                                 {"X-Content-Type-Options", "nosniff"},
                                 {"Referrer-Policy", "same-origin"}});
    SetHandlers();
  }

  httplib::Server& Server() { return server_; }

  /// The library lets five clients wait to be taken. Of those who come at the same moment the others would
  /// wait for a second, until their systems try once more.
  void LetMoreClientsWait() { listen(socket_, SOMAXCONN); }

  void Serve() {
    server_.listen_after_bind();
    has_served_ = true;
  }

  /// The library forgets a stop that comes before it serves.
  void Stop() {
    while (!server_.is_running() && !has_served_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    server_.stop();
  }

 private:
  void SetHandlers() {
    // The library's own routes are regular expressions, which need a deep stack for long paths; so this comes
    // first.
    server_.set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
      IgnoreRanges(request);
      OfferGzipOnly(request);
      if (request.method == "POST" && request.path.size() < 2000)
        return httplib::Server::HandlerResponse::Unhandled;
      const bool is_expected = (request.method == "GET" || request.method == "HEAD") && !HasBody(request);
      Send(respond_(ReadRequest(request)), is_expected ? Turn::kAnyAnswer : Turn::kLastAnswer, response);
      // Only an answer with a body can be the last one.
      if (!is_expected) const_cast<httplib::Request&>(request).method = "GET";
      return httplib::Server::HandlerResponse::Handled;
    });
    server_.Post("[^]*", [this](const httplib::Request& request, httplib::Response& response,
                                const httplib::ContentReader& read) {
      Request asked = ReadRequest(request);
      if (ReadForm(request, read, asked.form)) return Send(respond_(asked), Turn::kAnyAnswer, response);
      // 413 has been set by then.
      const int status = response.status < 400 ? 400 : response.status;
      Send({status, "text/plain; charset=utf-8", {}, "The form cannot be read.\n"}, Turn::kLastAnswer,
           response);
    });
    server_.set_exception_handler([](const httplib::Request&, httplib::Response& response,
                                     const std::exception_ptr&) { response.status = 500; });
    server_.set_error_handler([](const httplib::Request&, httplib::Response& response) {
      if (response.body.empty() && !response.has_header("Content-Type")) {
        response.set_content(
            "The request cannot be answered: status " + std::to_string(response.status) + ".\n",
            "text/plain; charset=utf-8");
      }
    });
  }

  std::function<Answer(const Request&)> respond_;
  httplib::Server server_;
  std::atomic<bool> has_served_ = false;
  socket_t socket_ = INVALID_SOCKET;  ///< The latest that was made: the one that is bound.
};

WebServer::WebServer(std::function<Answer(const Request&)> respond)
    : implementation_(std::make_unique<Implementation>(std::move(respond))) {}

WebServer::~WebServer() = default;

int WebServer::Bind(const std::string& host, int port) {
  errno = 0;
  httplib::Server& server = implementation_->Server();
  const int bound = port == 0 ? server.bind_to_any_port(host) : server.bind_to_port(host, port) ? port : -1;
  if (bound < 0) throw std::runtime_error(WhyNotBound(host, port, errno));
  implementation_->LetMoreClientsWait();
  return bound;
}

void WebServer::Serve() { implementation_->Serve(); }

void WebServer::Stop() { implementation_->Stop(); }

}  // namespace serve
