#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "data/shorthand.h"
#include "data/temporary_folder.h"
#include "database/session_pool.h"
#include "support/own_server.h"

namespace dralo::tests {

namespace {

/// Made by openssl, in a folder that a server of another user can read.
class Certificates {
 public:
  Certificates() {
    std::filesystem::permissions(File(""), std::filesystem::perms(0755));
    MakeAuthority("ca");
    MakeAuthority("other-ca");
    Run("req -x509 -CA " + File("ca.pem") + " -CAkey " + File("ca.key") + Common("server") +
        " -subj /CN=127.0.0.1 -addext subjectAltName=IP:127.0.0.1,DNS:127.0.0.1 -addext "
        "basicConstraints=CA:FALSE");
    std::filesystem::permissions(File("server.key"), std::filesystem::perms(0644));
  }

  std::string File(const std::string& name) const { return folder_.File(name); }

 private:
  void MakeAuthority(const std::string& name) const {
    Run("req -x509" + Common(name) + " -subj /CN=" + name);
  }

  std::string Common(const std::string& name) const {
    return " -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -keyout " + File(name + ".key") +
           " -out " + File(name + ".pem");
  }

  static void Run(const std::string& arguments) {
    if (std::system(("openssl " + arguments + " 2>/dev/null").c_str()) != 0) {
      throw std::runtime_error("openssl " + arguments);
    }
  }

  const TemporaryFolder folder_;
};

/// A server of 127.0.0.1 and 127.0.0.2, with a certificate for the first name.
class MariaDbEncryption : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    certificates_ = std::make_unique<Certificates>();
    server_ = std::make_unique<OwnServer>(
        Server::kMariaDb, std::vector<std::string>{"--bind-address=127.0.0.1,127.0.0.2",
                                                   "--ssl-cert=" + certificates_->File("server.pem"),
                                                   "--ssl-key=" + certificates_->File("server.key"),
                                                   "--ssl-ca=" + certificates_->File("ca.pem")});
  }
  static void TearDownTestSuite() {
    database::CloseIdleConnections();
    server_.reset();
    certificates_.reset();
  }

  static std::string With(const std::string& more) {
    return "Provider=MariaDB;Port=" + server_->Port() + ";User ID=" + kServerUser + ";Password={" +
           kServerPassword + "};" + more;
  }

  /// Which cipher the connection has.
  static std::string CipherWith(const std::string& more) {
    const Lines lines = Rows(Connect(With(more)), "SHOW SESSION STATUS LIKE 'Ssl_cipher'");
    return lines.at(0).substr(lines.at(0).find(' ') + 1);
  }

  /// Whether it is the library that refuses, for what it has found out of the server.
  static bool IsRefusedWith(const std::string& more) {
    return MessageOf([&] { Connect(With(more)); })
        .starts_with("The database cannot be opened: TLS/SSL error: ");
  }

  static std::string Authority(const std::string& name) { return ";SSL CA=" + certificates_->File(name); }

 private:
  static inline std::unique_ptr<Certificates> certificates_;
  static inline std::unique_ptr<OwnServer> server_;
};

TEST_F(MariaDbEncryption, IsThereWhereItIsWanted) {
  EXPECT_EQ(CipherWith(""), "''");
  EXPECT_EQ(CipherWith("SSL Mode=Disabled"), "''");
  for (const char* mode : {"Preferred", "Required"}) {
    EXPECT_NE(CipherWith("SSL Mode=" + std::string(mode)), "''") << mode;
  }
}

TEST_F(MariaDbEncryption, IsForAServerWithACertificateForItsNameByAKnownAuthority) {
  for (const char* mode : {"", ";SSL Mode=VerifyCA", ";SSL Mode=VerifyFull"}) {
    EXPECT_NE(CipherWith("Host=127.0.0.1" + Authority("ca.pem") + mode), "''") << mode;
  }
}

TEST_F(MariaDbEncryption, IsNotForAServerOfAnotherName) {
  EXPECT_NE(CipherWith("Host=127.0.0.2;SSL Mode=Required" + Authority("ca.pem")), "''");
  EXPECT_TRUE(IsRefusedWith("Host=127.0.0.2;SSL Mode=VerifyFull" + Authority("ca.pem")));
}

TEST_F(MariaDbEncryption, IsNotForAServerOfAnotherAuthority) {
  EXPECT_TRUE(IsRefusedWith("Host=127.0.0.1;SSL Mode=VerifyFull" + Authority("other-ca.pem")));
  EXPECT_TRUE(IsRefusedWith("Host=127.0.0.1;SSL Mode=VerifyFull")) << "of those that the system knows";
  EXPECT_TRUE(IsRefusedWith("Host=127.0.0.1" + Authority("missing.pem")));
}

TEST_F(MariaDbEncryption, LastsInThePool) {
  const std::string text = With("SSL Mode=VerifyFull" + Authority("ca.pem"));
  const auto connection = Connect(text);
  const Lines id = Rows(connection, "SELECT CONNECTION_ID()");
  connection->Execute("SET @trace = 1");
  connection->Close();
  connection->Open(text);
  EXPECT_EQ(Rows(connection, "SELECT CONNECTION_ID(), @trace IS NULL"), Lines{id.at(0) + " 1"});
}

}  // namespace

}  // namespace dralo::tests
