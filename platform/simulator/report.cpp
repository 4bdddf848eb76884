#include "simulator/report.h"

namespace HmiSimulator {

namespace {

void makeReport(const Request &request, int times)
{
    const Outcome outcome = request.settle();
    if (!outcome.tell)
        return;
    std::vector<std::string> arguments;
    if (!request.subject.empty())
        arguments.push_back(request.subject);
    arguments.push_back(outcome.text);
    for (int i = 0; i < times; ++i) {
        Core::instance().journal().record(Kind::Report, request.operation, arguments);
        outcome.tell();
    }
}

std::string label(const Request &request)
{
    return request.subject.empty() ? request.operation : request.operation + '(' + request.subject + ')';
}

} // namespace

DeliveryFault takeFault(Operation operation)
{
    return Core::instance().write([operation](Panel &panel) {
        DeliveryFault &fault = panel.faults.of(operation);
        const DeliveryFault taken = fault;
        if (fault.times > 0 && --fault.times == 0)
            fault = {};
        return taken;
    });
}

void submit(const DeliveryFault &fault, Request request)
{
    CallbackThread &thread = Core::instance().thread();
    const std::string name = label(request);
    const int delay = request.milliseconds;
    switch (fault.delivery) {
    case Delivery::Synchronous:
        makeReport(request, 1);
        return;
    case Delivery::Never:
        thread.scheduleState(delay, [request = std::move(request)] { request.settle(); });
        return;
    case Delivery::Normal:
    case Delivery::Late:
    case Delivery::Twice:
    case Delivery::Held:
        break;
    }
    const int extra = fault.delivery == Delivery::Late ? fault.lateBy : 0;
    const int times = fault.delivery == Delivery::Twice ? 2 : 1;
    thread.scheduleReport(name, delay + extra, fault.delivery == Delivery::Held,
                          [request = std::move(request), times] { makeReport(request, times); });
}

} // namespace HmiSimulator
