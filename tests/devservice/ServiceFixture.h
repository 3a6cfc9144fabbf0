#pragma once

#include "DevService.h"
#include "support/TemporaryFolder.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <httplib.h>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace orrelo::devservice {

using namespace std::chrono_literals;
using nlohmann::json;
using test::TemporaryFolder;

inline std::string onApp(const std::string& path, const std::string& appKey = "app") {
  return "/orreloservice/sdk/" + appKey + path;
}

inline json event(const std::string& id, const std::string& name = "opened",
                  const json& more = json::object()) {
  json result{{"event_id", id}, {"event_name", name}, {"event_time", "2026-05-04T03:02:01"}};
  result.update(more);
  return result;
}

/// A running service with the bundled scenario, and a client that trusts only its certificate.
class ServiceFixture : public testing::Test {
 protected:
  void SetUp() override { startService(); }

  void startService() {
    service_ = std::make_unique<DevService>(
        Options{.dataDirectory = data_.path(), .scenarioDirectory = scenario_, .port = port_, .now = now_});
    service_->start();
    port_ = service_->port();
    client_ = makeClient();
  }

  std::unique_ptr<httplib::SSLClient> makeClient(const std::string& host = "localhost") const {
    auto made = std::make_unique<httplib::SSLClient>(host, service_->port());
    made->set_ca_cert_path(service_->certificatePath().c_str());
    made->enable_server_certificate_verification(true);
    made->set_keep_alive(true);
    made->set_tcp_nodelay(true);
    made->set_read_timeout(120s);  // an emulated processor is slow
    return made;
  }

  httplib::Result post(const std::string& path, const json& body, const httplib::Headers& headers = {}) {
    return client_->Post(path, headers, body.dump(), "application/json");
  }

  json getJson(const std::string& path) {
    const auto result = client_->Get(path);
    return result ? json::parse(result->body, nullptr, false) : json();
  }

  TemporaryFolder data_;
  std::filesystem::path scenario_;
  std::optional<std::chrono::system_clock::time_point> now_;
  int port_ = 0;
  std::unique_ptr<DevService> service_;
  std::unique_ptr<httplib::SSLClient> client_;
};

}  // namespace orrelo::devservice
