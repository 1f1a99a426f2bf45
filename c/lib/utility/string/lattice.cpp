#include "utility/string/lattice.hpp"

#include <utility>

void getAllLatticePath(const std::vector<std::vector<std::string>>& lattice,
                       std::vector<std::string>& paths) {
    std::vector<std::string> heads;
    for (std::size_t k = 0; k < lattice.size(); ++k) {
        if (k == 0) {
            heads = lattice[0];
            continue;
        }
        std::vector<std::string> longer;
        for (const std::string& entry : lattice[k])
            for (const std::string& head : heads) longer.emplace_back(head).append("-").append(entry);
        heads = std::move(longer);
    }
    paths = std::move(heads);
}
