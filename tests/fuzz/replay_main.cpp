// Replays a corpus through a fuzz target without the fuzzer: every input as it stands, then a bounded number of
// mutations, the same ones on every run.
// Use: replay_<name> <corpus folder> <mutations>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t longestInput = 4096;

void replay(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

/// In the order of the names, so that the mutations come out alike on every machine.
std::vector<std::string> readCorpus(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files.push_back(entry.path());
    }
    std::ranges::sort(files);
    std::vector<std::string> inputs;
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return inputs;
}

class Mutator {
  public:
    explicit Mutator(const std::vector<std::string>& corpus) : corpus_(corpus) {}

    std::string next() {
        std::string input = anyInput();
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            change(input);
        }
        input.resize(std::min(input.size(), longestInput));
        return input;
    }

  private:
    /// std::uniform_int_distribution differs between libraries; the remainder does not.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }

    const std::string& anyInput() { return corpus_[below(corpus_.size())]; }

    void change(std::string& input) {
        const std::size_t at = below(input.size() + 1);
        const std::size_t length = 1 + below(8);
        switch (below(5)) {
            case 0:
                input.insert(at, 1, static_cast<char>(below(256)));
                break;
            case 1:
                input.erase(at, length);
                break;
            case 2:
                input.insert(at, input.substr(below(input.size() + 1), length));
                break;
            case 3: {
                const std::string& other = anyInput();
                input.insert(at, other.substr(below(other.size() + 1), length));
                break;
            }
            default:
                if (at < input.size()) {
                    input[at] = static_cast<char>(static_cast<unsigned char>(input[at]) ^ (1U << below(8)));
                }
                break;
        }
    }

    const std::vector<std::string>& corpus_;
    std::mt19937_64 random_{20260115};
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("use: replay <corpus folder> <mutations>\n", stderr);
        return 2;
    }
    const std::vector<std::string> corpus = readCorpus(argv[1]);
    if (corpus.empty()) {
        std::fputs("the corpus is empty\n", stderr);
        return 1;
    }
    std::ranges::for_each(corpus, replay);
    const std::string_view count = argv[2];
    long mutations = 0;
    std::from_chars(count.data(), count.data() + count.size(), mutations);
    Mutator mutator(corpus);
    for (; mutations > 0; --mutations) {
        replay(mutator.next());
    }
    return 0;
}
