#pragma once

#include <memory>
#include <utility>

namespace pell {

// A process-wide service that tests and hosts may swap out; a null replacement restores
// `Default`. Used on the user-interface thread only.
template <class Interface, class Default> class CReplaceable {
public:
    Interface& Get() const { return *m_current; }

    std::shared_ptr<Interface> Set(std::shared_ptr<Interface> replacement) {
        if (!replacement)
            replacement = std::make_shared<Default>();
        std::swap(replacement, m_current);
        return replacement;
    }

private:
    std::shared_ptr<Interface> m_current = std::make_shared<Default>();
};

} // namespace pell
