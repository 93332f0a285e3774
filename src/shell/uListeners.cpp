#include "uListeners.h"

#include "uDoor.h"

namespace murala
{

TSubscription TListeners::Listen(TListener& listener)
{
    // The subscription does not own the listener: it only counts who listens.
    std::shared_ptr<TListener> subscription(&listener, [](TListener*) {});
    m_listeners.emplace_back(subscription);
    return subscription;
}

void TListeners::Try(const std::function<void()>& tell) const noexcept
{
    NoThrow([&] {
        try {
            tell();
        } catch (const std::exception& error) {
            if (!OnFailure)
                throw;
            OnFailure(error);
        }
    });
}

} // namespace murala
