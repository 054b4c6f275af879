#include "tests/faults/Cases.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace Faults {
namespace {

void appendEvery(int stride, Series series, const QVector<int>& calls, int statusesPerCall,
                 QVector<Fault>& cases)
{
    const QVector<ZalErrorType>& statuses = failures();
    int turn = 0;
    for (int i = 0; i < calls.size(); i += stride) {
        for (const Mode mode : {Mode::Once, Mode::Lasting}) {
            for (int n = 0; n < statusesPerCall; ++n)
                cases.append({series, calls[i], statuses[turn++ % statuses.size()], mode});
        }
        // Or else, with an even number of statuses, each would always meet the same mode.
        if (turn % statuses.size() == 0)
            ++turn;
    }
}

QVector<int> upTo(int last)
{
    QVector<int> numbers(last);
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

QVector<int> othersThan(const QVector<int>& sorted, int last)
{
    const QVector<int> all = upTo(last);
    QVector<int> others;
    std::set_difference(all.begin(), all.end(), sorted.begin(), sorted.end(),
                        std::back_inserter(others));
    return others;
}

} // namespace

Census takeCensus()
{
    FaultyCamera camera;
    Gallery gallery;
    Session session(camera, gallery);
    session.play();
    return {camera.count(Series::Calls),
            camera.count(Series::Names),
            camera.decisiveNames(),
            camera.callList(),
            session.findings,
            session.notes,
            session.unansweredAsks};
}

QVector<Fault> casesOf(const Census& census, const Choice& choice)
{
    QVector<Fault> cases;
    const auto append = [&](int stride, Series series, const QVector<int>& calls) {
        appendEvery(stride, series, calls, choice.statusesPerCall, cases);
    };
    append(choice.callStride, Series::Calls, upTo(census.calls));
    append(choice.decisiveStride, Series::Names, census.decisiveNames);
    append(choice.nameStride, Series::Names, othersThan(census.decisiveNames, census.names));
    return cases;
}

QString noSuchCall()
{
    return QStringLiteral("the session has no such call");
}

Outcome playCase(const Fault& fault, Plant plant)
{
    FaultyCamera camera;
    camera.arm(fault);
    Gallery gallery;
    Session session(camera, gallery, plant);
    session.play();
    if (!camera.hasStruck())
        session.findings.append(noSuchCall());
    return {session.findings, session.notes};
}

} // namespace Faults
