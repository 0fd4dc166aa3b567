#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace dralo::tests {

/// Stands between a client and a server: passes on what they say, or does not, as a pooler or a bad network.
class Proxy {
 public:
  enum class Manner {
    kPassing,            ///< Only counts the trips.
    kSilent,             ///< Takes connections and says nothing.
    kRefusesOptions,     ///< Refuses clients that send options of their session, as poolers do.
    kKnowsNoCheck,       ///< Refuses the option to look for the client meanwhile, as older servers do.
    kStallsBehindStart,  ///< Says nothing more when a session has begun.
  };

  Proxy(Manner manner, const std::string& server_port) : manner_(manner), server_port_(server_port) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Address(0);
    socklen_t size = sizeof address;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(listener_, 8) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
      throw std::runtime_error("no proxy");
    }
    port_ = std::to_string(ntohs(address.sin_port));
    thread_ = std::thread([this] { Serve(); });
  }
  ~Proxy() {
    is_ending_ = true;
    thread_.join();
    close(listener_);
  }
  Proxy(const Proxy&) = delete;
  Proxy& operator=(const Proxy&) = delete;

  const std::string& Port() const { return port_; }

  /// Orders to answer, each the end of a trip.
  int Trips() const { return trips_; }

  /// Connections that were refused.
  int Refused() const { return refused_; }

 private:
  static sockaddr_in Address(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
  }

  static bool IsReady(int socket) {
    pollfd watched{socket, POLLIN, 0};
    return poll(&watched, 1, 20) > 0;
  }

  void Serve() {
    std::vector<std::thread> talks;
    while (!is_ending_) {
      if (!IsReady(listener_)) continue;
      const int client = accept(listener_, nullptr, nullptr);
      talks.emplace_back([this, client] { Talk(client); });
    }
    for (std::thread& talk : talks) talk.join();
  }

  void Talk(int client) {
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Address(std::stoi(server_port_));
    if (manner_ != Manner::kSilent &&
        connect(server, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) {
      bool is_open = true;
      while (!is_ending_ && is_open) is_open = PassOn(client, server, true) && PassOn(server, client, false);
    }
    while (manner_ == Manner::kSilent && !is_ending_) IsReady(listener_);
    close(client);
    close(server);
  }

  /// An error as the server sends it.
  static std::string Refusal(const std::string& text) {
    std::string fields("SFATAL\0C08P01\0M", 15);
    fields.append(text).append(2, '\0');
    const auto size = static_cast<std::uint32_t>(fields.size() + 4);
    std::string message = "E";
    for (const int shift : {24, 16, 8, 0}) message += static_cast<char>((size >> shift) & 0xFF);
    return message + fields;
  }

  bool Refuses(std::string_view text) const {
    constexpr std::string_view kOptions("\0options\0", 9);
    if (manner_ == Manner::kRefusesOptions) return text.find(kOptions) != text.npos;
    return manner_ == Manner::kKnowsNoCheck && text.find("client_connection_check_interval=") != text.npos;
  }

  void CountTrips(std::string_view text) {
    constexpr std::string_view kSync("S\0\0\0\4", 5);
    for (auto at = text.find(kSync); at != text.npos; at = text.find(kSync, at + 1)) ++trips_;
  }

  /// False when the connection is to end.
  bool PassOn(int from, int to, bool is_of_client) {
    pollfd watched{from, POLLIN, 0};
    if (poll(&watched, 1, 2) == 0) return true;
    std::array<char, 65536> bytes{};
    const ssize_t size = recv(from, bytes.data(), bytes.size(), 0);
    if (size <= 0) return false;
    const std::string_view text(bytes.data(), static_cast<std::size_t>(size));
    if (is_of_client) CountTrips(text);
    if (is_of_client && Refuses(text)) {
      ++refused_;
      send(from, refusal_.data(), refusal_.size(), MSG_NOSIGNAL);
      return false;
    }
    constexpr std::string_view kReady("Z\0\0\0\5I", 6);
    if (!is_of_client && text.ends_with(kReady) && manner_ == Manner::kStallsBehindStart) {
      send(to, text.data(), text.size(), MSG_NOSIGNAL);
      while (!is_ending_) IsReady(listener_);
      return false;
    }
    return send(to, text.data(), text.size(), MSG_NOSIGNAL) == size;
  }

  const Manner manner_;
  const std::string server_port_;
  int listener_ = -1;
  std::string port_;
  std::atomic<bool> is_ending_ = false;
  std::atomic<int> refused_ = 0;
  std::atomic<int> trips_ = 0;
  const std::string refusal_ =
      Refusal(manner_ == Manner::kKnowsNoCheck ? "unrecognized configuration parameter "
                                                 "\"client_connection_check_interval\""
                                               : "unsupported startup parameter in options: statement");
  std::thread thread_;
};

}  // namespace dralo::tests
