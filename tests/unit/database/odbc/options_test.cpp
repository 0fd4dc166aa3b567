#include "database/odbc/options.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>

#include "data/shorthand.h"
#include "database/odbc/error.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

namespace {

Options Read(const std::string& text) { return ReadOptions(ConnectionString(text)); }

bool Has(const Options& options, std::string_view part) {
  return options.text.find(part) != std::string::npos;
}

TEST(OdbcOptions, TakeTheTimeoutsOutOfTheText) {
  const Options options = Read("Driver=Other;Connect Timeout=3;Query Timeout=4;Server=s");
  EXPECT_EQ(options.connect_timeout_s, 3);
  EXPECT_EQ(options.query_timeout_s, 4);
  EXPECT_EQ(options.text, "Driver=Other;Server=s;");
}

TEST(OdbcOptions, HaveTimeoutsWhenNoneAreGiven) {
  EXPECT_EQ(Read("Driver=Other").connect_timeout_s, 15);
  EXPECT_EQ(Read("Driver=Other").query_timeout_s, 30);
}

TEST(OdbcOptions, RefuseATimeoutThatIsNoNumber) {
  for (const char* text :
       {"Connect Timeout=soon", "Connect Timeout=-1", "Connect Timeout=1.5", "Connect Timeout="}) {
    EXPECT_THROW(Read(std::string("Driver=Other;") + text), platform::Error) << text;
  }
}

TEST(OdbcOptions, UseTheNamesOfTheDriverManager) {
  EXPECT_EQ(Read("Provider=MSDASQL;Data Source=shop;User ID=u;Password=p").text, "DSN=shop;UID=u;PWD=p;");
  ConnectionString text("Driver=Other;Uid=first");
  text.Add("User ID", "second");
  EXPECT_EQ(ReadOptions(text).text, "Driver=Other;Uid=second;");
}

TEST(OdbcOptions, EncloseValuesThatNeedIt) {
  EXPECT_EQ(Read("Driver=Other;Pwd={a;b}}c}").text, "Driver=Other;Pwd={a;b}}c};");
  EXPECT_EQ(Read("Driver=Other;Database=' x '").text, "Driver=Other;Database={ x };");
  EXPECT_EQ(Read("Driver=Other;Server=a,b;Port=1,2").text, "Driver=Other;Server=a,b;Port=1,2;");
}

TEST(OdbcOptions, HaveWhatADriverNeedsByItsFile) {
  for (const char* driver : {"PostgreSQL Unicode", "/opt/lib/psqlodbcw.so"}) {
    EXPECT_TRUE(Has(Read(std::string("Driver=") + driver), ";BoolsAsChar=0;")) << driver;
  }
  EXPECT_TRUE(Has(Read("Driver=MariaDB Unicode"), ";CHARSET=utf8mb4;"));
  EXPECT_EQ(Read("Driver=Nowhere").text, "Driver=Nowhere;");
}

TEST(OdbcOptions, LeaveWhatTheAuthorWrites) {
  const Options options = Read("Driver=PostgreSQL Unicode;UseServerSidePrepare=0;pqopt={application_name=x}");
  EXPECT_TRUE(Has(options, ";UseServerSidePrepare=0;pqopt={application_name=x};"));
  EXPECT_FALSE(Has(options, "UseServerSidePrepare=1"));
}

TEST(OdbcOptions, TellTheTimeoutsToADriverThatTakesThemAsKeys) {
  const std::string text = "Driver=MariaDB Unicode;";
  EXPECT_TRUE(Has(Read(text + "Connect Timeout=3;Query Timeout=4"),
                  ";CONN_TIMEOUT=3;READ_TIMEOUT=6;WRITE_TIMEOUT=6;"));
  EXPECT_FALSE(Has(Read(text + "Connect Timeout=0;Query Timeout=0"), "TIMEOUT"));
}

TEST(OdbcErrors, NameTheCauseOfAConnectionThatIsNotMade) {
  const auto message = [](const std::string& text) {
    return tests::MessageOf([&] { tests::Connect(text + ";Pwd=hush"); });
  };
  EXPECT_EQ(message("Driver=Nowhere"),
            "The database cannot be opened: Can't open lib 'Nowhere' : file not found (SQLSTATE 01000)");
  EXPECT_EQ(message("DSN=nowhere"),
            "The database cannot be opened: Data source name not found and no default driver specified "
            "(SQLSTATE IM002)");
  EXPECT_EQ(message("Provider=msdasql;Data Source=nowhere"), message("DSN=nowhere"));
  EXPECT_NE(message("Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=1").find("Connection refused"),
            std::string::npos);
}

/// A server that lets in but never answers.
class SilentServer {
 public:
  SilentServer() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    bind(socket_, reinterpret_cast<sockaddr*>(&address), size);
    listen(socket_, 8);
    getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
  }
  ~SilentServer() { close(socket_); }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;

  std::string Port() const { return std::to_string(port_); }

 private:
  const int socket_;
  int port_ = 0;
};

TEST(OdbcErrors, ComeInTimeWhenAServerDoesNotAnswer) {
  const SilentServer server;
  for (const char* driver : {"PostgreSQL Unicode", "MariaDB Unicode"}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(tests::Connect(std::string("Driver=") + driver + ";Server=127.0.0.1;Port=" + server.Port() +
                                ";Uid=u;Pwd=p;Connect Timeout=2"),
                 platform::Error);
    // Long before the system would give up, and late enough for a busy machine.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60)) << driver;
  }
}

TEST(OdbcErrors, ShowNoPassword) {
  const std::vector<std::string> secrets = {"p", "hush;1", "{hush;1}"};
  EXPECT_EQ(WithoutSecrets("Server=port;PWD={hush;1};UID=p", secrets), "Server=port;PWD={***};UID=***");
  EXPECT_EQ(WithoutSecrets("hush;12 hush;1", secrets), "hush;12 ***");
}

}  // namespace

}  // namespace dralo::database::odbc
