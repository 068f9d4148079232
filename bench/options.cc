#include "bench/options.h"

#include <charconv>
#include <limits>
#include <stdexcept>

namespace fdo::bench {
namespace {

constexpr std::int64_t kQuickRows = 100'000;

std::int64_t WholeNumber(std::string const& option, std::string const& text, std::int64_t least) {
  std::int64_t number = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < least) {
    throw std::invalid_argument(option + " takes a whole number from " + std::to_string(least) + ", not \"" +
                                text + "\"");
  }
  return number;
}

}  // namespace

char const kUsage[] =
    "usage: quillon_bench [--only PREFIX] [--quick | --rows N] [--pairs N | --smoke]\n"
    "                     [--seed N] [--data DIRECTORY] [--json FILE] [--list]\n"
    "\n"
    "  --only PREFIX      only jobs whose name, followed by a space and the name of its data, begins so\n"
    "  --quick            100,000 rows instead of 1,000,000\n"
    "  --rows N           that many rows\n"
    "  --pairs N          pairs of runs that are counted, 5 unless given; 3 at least make a figure\n"
    "  --smoke            one pair of the shortest runs, which shows that the jobs work and no more\n"
    "  --seed N           of the data\n"
    "  --data DIRECTORY   where the files of data are made, and found again\n"
    "  --json FILE        writes the figures there, too\n"
    "  --list             lists the jobs\n"
    "  --help             shows this\n";

Options ParseOptions(std::vector<std::string> const& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::string const& option = arguments[i];
    auto const value = [&]() -> std::string const& {
      if (i + 1 >= arguments.size()) throw std::invalid_argument(option + " needs a value");
      return arguments[++i];
    };
    if (option == "--only") {
      options.only = value();
    } else if (option == "--quick") {
      options.bench.rows = kQuickRows;
    } else if (option == "--rows") {
      options.bench.rows = WholeNumber(option, value(), 1);
    } else if (option == "--pairs") {
      std::int64_t const pairs = WholeNumber(option, value(), 1);
      if (pairs > std::numeric_limits<int>::max()) throw std::invalid_argument("--pairs is too large");
      options.effort.pairs = static_cast<int>(pairs);
    } else if (option == "--smoke") {
      options.effort = {1, 0};
    } else if (option == "--seed") {
      options.bench.seed = static_cast<std::uint64_t>(WholeNumber(option, value(), 0));
    } else if (option == "--data") {
      options.bench.dataDirectory = value();
    } else if (option == "--json") {
      options.jsonFile = value();
    } else if (option == "--list") {
      options.list = true;
    } else if (option == "--help") {
      options.help = true;
    } else {
      throw std::invalid_argument("unknown option \"" + option + "\"");
    }
  }
  return options;
}

}  // namespace fdo::bench
