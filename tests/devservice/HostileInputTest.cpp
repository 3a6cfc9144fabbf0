#include "ServiceFixture.h"

#include <arpa/inet.h>
#include <memory>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orrelo::devservice {

namespace {

/// A connection that sends whatever it is told.
class RawConnection {
 public:
  explicit RawConnection(int port) : descriptor(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  }
  ~RawConnection() {
    ssl.reset();
    ::close(descriptor);
  }
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  void secure() {
    ssl.reset(SSL_new(context.get()));
    SSL_set_fd(ssl.get(), descriptor);
    ASSERT_EQ(SSL_connect(ssl.get()), 1);
  }
  void sendPlain(const std::string& bytes) { ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL); }
  void send(const std::string& bytes) { SSL_write(ssl.get(), bytes.data(), static_cast<int>(bytes.size())); }
  std::string receive() {
    std::string bytes(16384, '\0');
    const int got = SSL_read(ssl.get(), bytes.data(), static_cast<int>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max(got, 0)));
    return bytes;
  }

 private:
  int descriptor;
  std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context{SSL_CTX_new(TLS_client_method()), SSL_CTX_free};
  std::unique_ptr<SSL, decltype(&SSL_free)> ssl{nullptr, SSL_free};
};

class HostileInputTest : public ServiceFixture {
 protected:
  void expectAlive() { EXPECT_EQ(makeClient()->Get(onApp("/config"))->status, 200); }
};

TEST_F(HostileInputTest, BrokenRequestsAreRefused) {
  const std::string config = "GET " + onApp("/config") + " HTTP/1.1\r\n";
  for (const std::string& request :
       {std::string("\r\n\r\n"), std::string("GET\r\n\r\n"), std::string("BREW / HTTP/1.1\r\n\r\n"),
        std::string("GET / HTTP/9.9\r\n\r\n"), config + "Range: bytes=99999999999999999999-\r\n\r\n",
        config + "Range: bytes=5-2\r\n\r\n", "GET /" + std::string(9000, 'a') + " HTTP/1.1\r\n\r\n",
        config + "X: " + std::string(9000, 'a') + "\r\n\r\n",
        "POST " + onApp("/event") + " HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n"}) {
    RawConnection connection(port);
    connection.secure();
    connection.send(request);
    const auto reply = connection.receive();
    EXPECT_TRUE(reply.empty() || reply.starts_with("HTTP/1.1 ")) << request;
    EXPECT_EQ(reply.find("\r\nContent-Range"), std::string::npos);
  }
  expectAlive();
}

TEST_F(HostileInputTest, ConnectionsThatBreakOffDoNoHarm) {
  RawConnection(port).sendPlain("GET / HTTP/1.1\r\n\r\n");
  RawConnection silent(port);
  RawConnection halfway(port);
  halfway.secure();
  halfway.send("POST " + onApp("/event") + " HTTP/1.1\r\nContent-Length: 100\r\n\r\n{");
  {
    RawConnection impatient(port);
    impatient.secure();
    impatient.send("GET " + onApp("/config") + " HTTP/1.1\r\n\r\n");
  }
  expectAlive();
  // Neither the silent one nor the one halfway holds the service up.
  const auto begin = std::chrono::steady_clock::now();
  service->stop();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
}

TEST_F(HostileInputTest, RequestsInOnePacketAreAnsweredInTurn) {
  RawConnection connection(port);
  connection.secure();
  const std::string first = "POST " + onApp("/event") + " HTTP/1.1\r\nlocale: one\r\nContent-Length: ";
  const auto body = event("E-1").dump();
  connection.send(first + std::to_string(body.size()) + "\r\n\r\n" + body + "GET " + onApp("/config") +
                  " HTTP/1.1\r\nlocale: two\r\nConnection: close\r\n\r\n");
  ASSERT_TRUE(service->waitForRequests("/config", 1, 10s));
  EXPECT_EQ(service->events().front().headers.at("locale"), "one");
  EXPECT_EQ(service->requests("/config").front().header("locale"), "two");
}

TEST_F(HostileInputTest, DeepAndLargeBodiesAreRefused) {
  const auto status = [&](const std::string& body) {
    const auto result = makeClient()->Post(onApp("/events"), body, "application/json");
    return result ? result->status : 0;
  };
  EXPECT_EQ(status(std::string(2 << 20, '[')), 400);
  EXPECT_EQ(status(std::string(1 << 20, '[') + std::string(1 << 20, ']')), 400);
  const int tooLarge = status(std::string(17 << 20, ' '));
  EXPECT_TRUE(tooLarge == 413 || tooLarge == 0) << tooLarge << ": refused, or cut off while sending";
  expectAlive();
}

TEST_F(HostileInputTest, ARequestWithoutABodyDoesNotWaitForOne) {
  const auto begin = std::chrono::steady_clock::now();
  RawConnection connection(port);
  connection.secure();
  connection.send("POST " + onApp("/event") + " HTTP/1.1\r\n\r\n");
  EXPECT_TRUE(connection.receive().starts_with("HTTP/1.1 400"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

}  // namespace

}  // namespace orrelo::devservice
