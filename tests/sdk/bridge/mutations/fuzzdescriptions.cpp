// Opens and uses cameras with mutated descriptions:
//   fuzzdescriptions [--alone] COUNT FIRST_SEED DESCRIPTION...
// Each mutant runs in a process of its own. Fails when one is neither opened nor refused with a
// sentence; a second process finds out whether Aravis alone ends in that way, too. With --alone,
// only Aravis runs, and nothing fails.
#include "tests/sdk/bridge/mutations/Mutator.h"
#include "tests/sdk/bridge/mutations/Runs.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// Of waiting, because other work may slow everything down, and of work.
constexpr unsigned LongestRun = 120;
constexpr rlim_t LongestWork = 30;

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

using Run = Runs::Outcome (*)(const std::string&);

void prepareChild()
{
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    const rlimit work{LongestWork, LongestWork};
    ::setrlimit(RLIMIT_CPU, &work);
    ::alarm(LongestRun);
}

/// The outcome, or the negative signal that ended the process.
int runInAProcess(Run run, const std::string& file)
{
    std::cout.flush();
    const pid_t child = ::fork();
    if (child < 0) {
        std::perror("fork");
        std::exit(2);
    }
    if (child == 0) {
        prepareChild();
        Runs::limitMemory();
        ::_exit(run(file));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

bool isHang(int result)
{
    return result == -SIGALRM || result == -SIGXCPU || result == -SIGKILL;
}

bool isGood(int result)
{
    return result == Runs::Opened || result == Runs::Refused;
}

std::string nameOf(int result)
{
    if (result == Runs::Opened)
        return "opened";
    if (result == Runs::Refused)
        return "refused";
    if (result > 0)
        return "refused without a sentence";
    return isHang(result) ? "hung" : std::string("ended by ") + ::strsignal(-result);
}

std::string verdictOf(const std::string& file)
{
    const int result = runInAProcess(Runs::throughTheBridge, file);
    if (isGood(result))
        return nameOf(result);
    const bool isAravis = !isGood(runInAProcess(Runs::throughAravisAlone, file));
    return (isAravis ? "Aravis alone, too: " : "only the bridge: ") + nameOf(result);
}

std::string verdictOfAravisAlone(const std::string& file)
{
    return nameOf(runInAProcess(Runs::throughAravisAlone, file));
}

std::string mutantOf(const std::vector<std::string>& descriptions, std::uint32_t seed)
{
    return Mutator(descriptions[seed % descriptions.size()], seed).mutate();
}

struct Options
{
    bool isAlone = false;
    std::uint32_t count = 0;
    std::uint32_t first = 0;
    std::vector<std::string> descriptions;
};

bool parse(std::vector<std::string> arguments, Options& options)
{
    options.isAlone = !arguments.empty() && arguments.front() == "--alone";
    if (options.isAlone)
        arguments.erase(arguments.begin());
    if (arguments.size() < 3)
        return false;
    options.count = static_cast<std::uint32_t>(std::stoul(arguments[0]));
    options.first = static_cast<std::uint32_t>(std::stoul(arguments[1]));
    for (std::size_t i = 2; i < arguments.size(); ++i) {
        options.descriptions.push_back(contentOf(arguments[i]));
        if (options.descriptions.back().empty()) {
            std::cerr << arguments[i] << " cannot be read\n";
            return false;
        }
    }
    return true;
}

bool isGood(const std::string& verdict)
{
    return verdict == nameOf(Runs::Opened) || verdict == nameOf(Runs::Refused);
}

// A mutant that ended a process is kept.
void report(std::uint32_t seed, const std::string& verdict, const std::string& file)
{
    if (isGood(verdict))
        return;
    std::cout << "seed " << seed << ": " << verdict << std::endl;
    std::rename(file.c_str(), ("mutant-" + std::to_string(seed) + ".xml").c_str());
}

/// How often each verdict was given.
std::map<std::string, int> runAll(const Options& options)
{
    const std::string file = "mutant-" + std::to_string(::getpid()) + ".xml";
    std::map<std::string, int> verdicts;
    for (std::uint32_t seed = options.first; seed < options.first + options.count; ++seed) {
        std::ofstream(file, std::ios::binary) << mutantOf(options.descriptions, seed);
        const std::string verdict = options.isAlone ? verdictOfAravisAlone(file) : verdictOf(file);
        ++verdicts[verdict];
        report(seed, verdict, file);
    }
    std::remove(file.c_str());
    return verdicts;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!parse({argv + 1, argv + argc}, options)) {
        std::cerr << "usage: fuzzdescriptions [--alone] COUNT FIRST_SEED DESCRIPTION...\n";
        return 2;
    }
    bool allGood = true;
    for (const auto& [verdict, times] : runAll(options)) {
        std::cout << times << ' ' << verdict << '\n';
        allGood = allGood && isGood(verdict);
    }
    return allGood || options.isAlone ? 0 : 1;
}
