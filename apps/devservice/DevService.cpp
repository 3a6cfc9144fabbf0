#include "DevService.h"

#include "faults/FaultBook.h"
#include "http/Certificate.h"
#include "http/Dispatcher.h"
#include "http/HttpServer.h"
#include "http/RequestLog.h"
#include "scenario/Scenario.h"
#include "scenario/defaultScenario.h"
#include "store/EventStore.h"
#include "store/UserDatabase.h"

#include <mutex>
#include <stdexcept>
#include <utility>

namespace orrelo::devservice {

namespace {

std::filesystem::path prepare(const std::filesystem::path& directory) {
  if (directory.empty()) throw std::runtime_error("a data directory is needed");
  std::filesystem::create_directories(directory);
  return std::filesystem::absolute(directory);
}

std::filesystem::path scenarioOr(const std::filesystem::path& directory) {
  return std::filesystem::absolute(directory.empty() ? defaultScenario() : directory);
}

}  // namespace

class DevService::Impl {
 public:
  explicit Impl(const Options& options)
      : directory(prepare(options.dataDirectory)),
        certificate(Certificate::loadOrCreate(directory)),
        scenario(scenarioOr(options.scenarioDirectory), options.now),
        store(directory / "devservice.sqlite3"),
        // The file is named after its first table, which older data folders have.
        users(directory / "participations.sqlite3"),
        dispatcher(store, users, scenario, requests, faults),
        port(options.port) {}

  const std::filesystem::path directory;
  const Certificate certificate;
  const Scenario scenario;
  EventStore store;
  UserDatabase users;
  RequestLog requests;
  FaultBook faults;
  Dispatcher dispatcher;

  /// Guards `port` and `server`.
  mutable std::mutex lifecycle;
  int port;
  std::unique_ptr<HttpServer> server;
};

DevService::DevService(const Options& options) : impl_(std::make_unique<Impl>(options)) {}

DevService::~DevService() {
  stop();
}

void DevService::start() {
  const std::lock_guard lock(impl_->lifecycle);
  if (impl_->server) return;
  impl_->faults.open();
  auto server = std::make_unique<HttpServer>(
      impl_->certificate, [dispatcher = &impl_->dispatcher](const auto& request, auto& response) {
        dispatcher->handle(request, response);
      });
  impl_->port = server->start(impl_->port);
  impl_->server = std::move(server);
}

void DevService::stop() {
  const std::lock_guard lock(impl_->lifecycle);
  if (!impl_->server) return;
  impl_->faults.close();
  impl_->server.reset();
}

bool DevService::isRunning() const {
  const std::lock_guard lock(impl_->lifecycle);
  return impl_->server != nullptr;
}

int DevService::port() const {
  const std::lock_guard lock(impl_->lifecycle);
  return impl_->port;
}

std::string DevService::baseUrl() const {
  return "https://localhost:" + std::to_string(port());
}

std::filesystem::path DevService::certificatePath() const {
  return impl_->certificate.certificateFile;
}

std::vector<ReceivedEvent> DevService::events() const {
  return impl_->store.events();
}
std::int64_t DevService::eventCount() const {
  return impl_->store.counts().events;
}
std::int64_t DevService::deliveryCount() const {
  return impl_->store.counts().deliveries;
}
std::vector<KnownUser> DevService::users() const {
  return impl_->store.users();
}
std::vector<SavedToken> DevService::tokens() const {
  return impl_->store.tokens();
}

bool DevService::waitForEvents(std::int64_t count, std::chrono::milliseconds timeout) const {
  return impl_->store.waitFor([&] { return eventCount() >= count; }, timeout);
}

bool DevService::waitForEvents(const EventPredicate& predicate, std::chrono::milliseconds timeout) const {
  return impl_->store.waitFor([&] { return predicate(events()); }, timeout);
}

std::vector<RequestRecord> DevService::requests(const std::string& pathSuffix) const {
  return impl_->requests.records(pathSuffix);
}

std::int64_t DevService::requestCount(const std::string& pathSuffix) const {
  return impl_->requests.count(pathSuffix);
}

bool DevService::waitForRequests(const std::string& pathSuffix, std::int64_t count,
                                 std::chrono::milliseconds timeout) const {
  return impl_->requests.waitFor(pathSuffix, count, timeout);
}

std::uint64_t DevService::orderFault(Fault fault) {
  return impl_->faults.order(std::move(fault));
}
void DevService::clearFaults() {
  impl_->faults.clear();
}
bool DevService::clearFault(std::uint64_t id) {
  return impl_->faults.clear(id);
}
std::vector<OrderedFault> DevService::faults() const {
  return impl_->faults.list();
}

}  // namespace orrelo::devservice
