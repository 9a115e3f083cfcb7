#include "print_dialog/job_readback.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

#include "job_ticket/attachment.h"
#include "print_dialog/option_words.h"
#include "print_dialog/time_limit.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr std::chrono::milliseconds kReadBackLimit(2000);
/// Every job is sent with a name. A server that does not even tell that one keeps its jobs private.
constexpr const char* kAlwaysThere = "job-name";

using Values = std::vector<std::string>;

/// A value in words that do not depend on its type: a server may keep a keyword as a name, an enum
/// as a number, a lone page as a number.
std::string Value(ipp_attribute_t* attribute, int index) {
    switch (ippGetValueTag(attribute)) {
        case IPP_TAG_INTEGER:
        case IPP_TAG_ENUM:
            return std::to_string(ippGetInteger(attribute, index));
        case IPP_TAG_BOOLEAN:
            return ippGetBoolean(attribute, index) ? "true" : "false";
        case IPP_TAG_RANGE: {
            int last = 0;
            const int first = ippGetRange(attribute, index, &last);
            const std::string text = std::to_string(first);
            return first == last ? text : text + '-' + std::to_string(last);
        }
        default: {
            const char* text = ippGetString(attribute, index, nullptr);
            return text ? text : "?";
        }
    }
}

/// Empty without the attribute.
Values AllValues(ipp_t* message, const std::string& name) {
    Values values;
    auto* attribute = ippFindAttribute(message, name.c_str(), IPP_TAG_ZERO);
    for (int i = 0; i < ippGetCount(attribute); ++i) values.push_back(Value(attribute, i));
    return values;
}

/// Printers do not tell "Duplex" from "duplex" either.
bool Equal(const Values& one, const Values& other) {
    return std::ranges::equal(one, other, [](const auto& a, const auto& b) {
        return strcasecmp(a.c_str(), b.c_str()) == 0;
    });
}

std::string Difference(const JobOrder& order, const std::string& option, const Values& sent,
                       const Values& kept) {
    if (option == job_ticket::kDigestOption) return HostText("Ticket dropped");
    const auto name = OptionWords(order.texts, option);
    const auto before = ChoiceWords(order.texts, option, sent);
    if (kept.empty()) return HostText("Option dropped", {name, before});
    const auto after = OneLine(ChoiceWords(order.texts, option, kept));
    return HostText("Option changed", {name, before, after});
}

IppMessage JobRequest(const JobOrder& order, int job) {
    auto request = NewRequest(IPP_OP_GET_JOB_ATTRIBUTES, order.queue);
    ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job);
    std::vector<const char*> names = {kAlwaysThere};
    for (const auto& [name, value] : order.options) names.push_back(name.c_str());
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(names.size()), nullptr, names.data());
    return request;
}

/// A second handle of a connection, to end it whatever another thread does with it.
class Wire final {
public:
    explicit Wire(http_t* http) : wire_(fcntl(httpGetFd(http), F_DUPFD_CLOEXEC, 0)) {}
    ~Wire() {
        if (wire_ >= 0) close(wire_);
    }
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;
    void cut() const { shutdown(wire_, SHUT_RDWR); }

private:
    int wire_;
};

}  // namespace

void EncodeJobOptions(const JobOrder& order, ipp_t* request) {
    cups_option_t* options = nullptr;
    int count = 0;
    for (const auto& [name, value] : order.options) {
        count = cupsAddOption(name.c_str(), value.c_str(), count, &options);
    }
    cupsEncodeOptions2(request, count, options, IPP_TAG_OPERATION);
    cupsEncodeOptions2(request, count, options, IPP_TAG_JOB);
    cupsFreeOptions(count, options);
}

std::vector<std::string> DifferencesFrom(const JobOrder& order, ipp_t* answer) {
    std::vector<std::string> lines;
    if (!ippFindAttribute(answer, kAlwaysThere, IPP_TAG_ZERO)) return lines;
    const IppMessage asSent(ippNew());
    EncodeJobOptions(order, asSent.get());
    for (const auto& [option, value] : order.options) {
        auto sent = AllValues(asSent.get(), option);
        if (sent.empty()) sent = {value};
        const auto kept = AllValues(answer, option);
        if (Equal(sent, kept)) continue;
        const bool gravest = option == job_ticket::kDigestOption;
        lines.insert(gravest ? lines.begin() : lines.end(), Difference(order, option, sent, kept));
    }
    return lines;
}

std::vector<std::string> JobDifferences(const JobOrder& order, int job, HttpConnection http) {
    if (order.options.empty()) return {};
    const Wire wire(http.get());
    auto ask = [connection = std::shared_ptr<http_t>(std::move(http)), order, job] {
        PrepareThread();
        std::string ignored;
        const auto answer =
            Ask(connection.get(), JobRequest(order, job), QueueResource(order.queue), &ignored);
        return answer ? DifferencesFrom(order, answer.get()) : std::vector<std::string>();
    };
    auto lines = AnswerWithin<std::vector<std::string>>(kReadBackLimit, std::move(ask));
    // Whatever still comes is not waited for.
    if (!lines) wire.cut();
    return lines.value_or(std::vector<std::string>());
}

}  // namespace kalmo
