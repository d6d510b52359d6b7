#include "Catalogs/HttpsClient.h"

#include "Events.h"
#include "GoogleServer.h"
#include "Testing.h"

#include <QCoroFuture>

namespace kerlune {
namespace {

using HttpCase = HttpsClient::Error::Case;

constexpr HttpsClient::Limits kLimits{.mostBytes = 1 << 20, .silence = 10s, .whole = 10s};

class HttpsClientTest : public testing::Test {
protected:
    ~HttpsClientTest() override { finishBackgroundWork(); }

    QFuture<HttpsClient::Result> ask(const std::string &path, const HttpsClient::Limits &limits = kLimits)
    {
        return m_client->get(QUrl(QString::fromStdString(m_server.url(path))), limits);
    }
    static HttpsClient::Result wait(const QFuture<HttpsClient::Result> &future)
    {
        EXPECT_TRUE(waitUntil([&] { return future.isFinished(); }));
        return future.result();
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    GoogleServer m_server;
    std::unique_ptr<HttpsClient> m_client = std::make_unique<HttpsClient>();
};

TEST_F(HttpsClientTest, GivesWholeAnswersOfAnyStatusAndNothingElse)
{
    m_server.setPlan({{"font",
                       {{"good", {{"body", "Zdravo"}}},
                        {"empty", {{"body", ""}}},
                        {"404", {{"status", 404}, {"body", "no"}}},
                        {"400", {{"status", 400}, {"body", "bad"}}},
                        {"500", {{"status", 500}, {"body", "oh"}}},
                        {"there", {{"redirect", m_server.url("/font/good")}}},
                        {"near", {{"redirect", "good"}}},
                        {"round", {{"redirect", "round"}}},
                        {"down", {{"redirect", "http://127.0.0.1:1/x"}}},
                        {"cut", {{"cut", 5'000}}},
                        {"close", {{"close", true}}},
                        {"endless", {{"endless", true}}},
                        {"stall", {{"stall", 20}}}}}});
    struct Expected {
        const char *path;
        int status;
        QByteArray body;
    };
    const std::vector<Expected> answers{{"good", 200, "Zdravo"}, {"empty", 200, ""}, {"404", 404, "no"},
                                        {"400", 400, "bad"},     {"500", 500, "oh"}, {"there", 200, "Zdravo"},
                                        {"near", 200, "Zdravo"}, {"down", 302, ""},  {"round", 302, ""}};
    for (const auto &[path, status, body] : answers) {
        const auto result = wait(ask(std::string("/font/") + path));
        ASSERT_TRUE(result) << path << ": " << result.error().description();
        EXPECT_EQ(result->status, status) << path;
        EXPECT_EQ(result->body, body) << path;
    }
    EXPECT_EQ(m_server.requestsFor("/font/round"), 1U + HttpsClient::kMostRedirects);

    const std::vector<std::pair<const char *, HttpCase>> errors{{"cut", HttpCase::noAnswer},
                                                                {"close", HttpCase::noAnswer},
                                                                {"endless", HttpCase::tooLarge},
                                                                {"stall", HttpCase::timedOut}};
    for (const auto &[path, kind] : errors) {
        const auto result = wait(ask(std::string("/font/") + path, {.mostBytes = 1 << 20, .silence = 300ms}));
        ASSERT_FALSE(result) << path;
        EXPECT_EQ(result.error().kind, kind) << path << ": " << result.error().description();
        EXPECT_FALSE(result.error().description().empty());
    }
    // Bytes that keep coming do not keep it up for ever.
    const auto late = wait(ask("/font/endless", {.mostBytes = 1LL << 60, .silence = 10s, .whole = 300ms}));
    ASSERT_FALSE(late);
    EXPECT_EQ(late.error().kind, HttpCase::timedOut);
}

TEST_F(HttpsClientTest, AsksOnlyServersThatItCanTrust)
{
    for (const char *url : {"http://127.0.0.1/x", "file:///etc/passwd", "", "https:///x", "ftp://127.0.0.1/x"}) {
        const auto result = wait(m_client->get(QUrl(QString::fromLatin1(url)), kLimits));
        ASSERT_FALSE(result) << url;
        EXPECT_EQ(result.error().kind, HttpCase::notHttps) << url;
    }
    unsetenv("SSL_CERT_FILE"); // nobody else knows the authority
    const auto unknown = wait(ask("/font/x"));
    ASSERT_FALSE(unknown);
    EXPECT_EQ(unknown.error().kind, HttpCase::noAnswer);

    setenv("SSL_CERT_FILE", m_server.authority().c_str(), 1);
    m_client = std::make_unique<HttpsClient>();
    EXPECT_TRUE(wait(ask("/font/x")));
    std::string otherName = m_server.url("/font/x"); // the certificate is for the number
    otherName.replace(otherName.find("127.0.0.1"), 9, "localhost");
    EXPECT_FALSE(wait(m_client->get(QUrl(QString::fromStdString(otherName)), kLimits)));
    EXPECT_EQ(m_server.requestsFor("/"), 1U);
}

TEST_F(HttpsClientTest, KeepsToSixConnectionsHoweverManyServersThereAre)
{
    m_server.setPlan({{"font", {{"a", {{"body", "a"}, {"delay", 0.02}}}, {"slow", {{"body", "a"}, {"delay", 1}}}}}});
    std::vector<QFuture<HttpsClient::Result>> alone;
    for (int i = 0; i < 30; ++i)
        alone.push_back(ask("/font/a"));
    for (const auto &future : alone)
        EXPECT_TRUE(wait(future));
    EXPECT_EQ(m_server.mostConnections(), HttpsClient::kMostConnections);

    std::vector<QFuture<HttpsClient::Result>> both;
    for (int i = 0; i < 60; ++i) {
        const std::string path = i % 20 == 0 ? "/font/slow" : "/font/a";
        both.push_back(i % 2 == 0 ? ask(path)
                                  : m_client->get(QUrl(QString::fromStdString(m_server.otherUrl(path))), kLimits));
    }
    for (const auto &future : both)
        EXPECT_TRUE(wait(future));
    EXPECT_EQ(m_server.mostConnections(), HttpsClient::kMostConnections);
    EXPECT_EQ(m_server.requestsFor("/font/"), 90U);
}

TEST_F(HttpsClientTest, KeepsToSixConnectionsAndAsksOnceWhereAnswersFail)
{
    const std::vector<nlohmann::json> answers{
        {{"body", "a"}},     {{"status", 404}}, {{"cut", 5'000}},  {{"reset", true}}, {{"close", true}},
        {{"endless", true}}, {{"stall", 2}},    {{"status", 500}}, {{"body", "b"}},   {{"redirect", "/font/0"}}};
    nlohmann::json plan;
    for (std::size_t i = 0; i < 120; ++i)
        plan[std::to_string(i)] = answers[i % answers.size()];
    m_server.setPlan({{"font", plan}});
    std::vector<QFuture<HttpsClient::Result>> all;
    for (int i = 0; i < 120; ++i) {
        const std::string path = "/font/" + std::to_string(i);
        const std::string url = i / 10 % 2 == 0 ? m_server.url(path) : m_server.otherUrl(path);
        all.push_back(m_client->get(QUrl(QString::fromStdString(url)), {.mostBytes = 1 << 20, .silence = 500ms}));
    }
    EXPECT_TRUE(waitUntil(
        [&] { return std::all_of(all.begin(), all.end(), [](const auto &future) { return future.isFinished(); }); }));
    EXPECT_LE(m_server.mostConnections(), HttpsClient::kMostConnections);
    const std::vector<std::string> requests = m_server.requests();
    for (std::size_t i = 1; i < 120; ++i) {
        EXPECT_EQ(std::count(requests.begin(), requests.end(), "/font/" + std::to_string(i)), 1)
            << answers[i % answers.size()];
    }
}

TEST_F(HttpsClientTest, EndsWithAResultWhenItGoes)
{
    m_server.setPlan({{"font", {{"stall", {{"stall", 20}}}}}});
    std::vector<QFuture<HttpsClient::Result>> all;
    for (int i = 0; i < 8; ++i)
        all.push_back(ask("/font/stall"));
    ASSERT_TRUE(waitUntil([&] { return m_server.requestsFor("/font/stall") == 6; }));
    m_client.reset();
    for (const auto &future : all) {
        ASSERT_TRUE(future.isFinished());
        EXPECT_EQ(future.result().error().kind, HttpCase::cancelled);
    }
}

} // namespace
} // namespace kerlune
