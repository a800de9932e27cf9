#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace ledra {

/// The stored fields of a record type as pointers to members, in declared order. Specialised beside each
/// record as a constexpr std::tuple; observation compares and names fields by it.
template <class T>
inline constexpr std::nullptr_t recordFields = nullptr;

/// Which stored fields one edit changed.
template <class T>
class Changes
{
public:
    bool any() const { return fields_.any(); }

    template <auto member>
    bool has() const
    {
        return fields_.test(index<member>());
    }

    static Changes between(const T& before, const T& after)
    {
        Changes changes;
        std::size_t position = 0;
        const auto compare = [&](auto member) {
            changes.fields_.set(position++, !(before.*member == after.*member));
        };
        std::apply([&](auto... member) { (compare(member), ...); }, recordFields<T>);
        return changes;
    }

private:
    static constexpr std::size_t count = std::tuple_size_v<std::remove_const_t<decltype(recordFields<T>)>>;

    template <auto member>
    static constexpr std::size_t index()
    {
        std::size_t found = count;
        std::size_t position = 0;
        const auto look = [&](auto candidate) {
            if constexpr (std::is_same_v<decltype(candidate), std::remove_const_t<decltype(member)>>) {
                if (candidate == member)
                    found = position;
            }
            ++position;
        };
        std::apply([&](auto... candidate) { (look(candidate), ...); }, recordFields<T>);
        return found;
    }

    std::bitset<count> fields_;
};

/// Keeps an observer registered as long as it lives.
using Observation = std::shared_ptr<void>;

/// A record with identity: one shared instance of a value type T that screens look at and its store edits.
///
/// The value is read through `->` and `*` and changed only by edit(). After an edit every observer is told
/// once, with the set of fields whose value really differs; an edit that changes nothing tells nobody. A
/// record that nobody observes carries one empty pointer and copies nothing.
template <class T>
class Record
{
public:
    using Observer = std::function<void(const Changes<T>&)>;

    explicit Record(T value) : value_(std::move(value)) {}
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }

    /// Grows with each edit, so that whoever keeps something that follows from the value knows whether it
    /// holds.
    std::uint32_t revision() const { return revision_; }

    template <class Mutator>
    void edit(Mutator&& mutate)
    {
        ++revision_;
        if (!observers_) {
            std::forward<Mutator>(mutate)(value_);
            return;
        }
        const T before = value_;
        std::forward<Mutator>(mutate)(value_);
        const Changes<T> changes = Changes<T>::between(before, value_);
        if (changes.any())
            notify(changes);
    }

    /// Calls the observer after each real change until the returned observation goes.
    [[nodiscard]] Observation observe(Observer observer) const
    {
        if (!observers_)
            observers_ = std::make_unique<std::vector<std::weak_ptr<Slot>>>();
        auto slot = std::make_shared<Slot>(std::move(observer));
        observers_->push_back(slot);
        return Observation(slot.get(), [slot](void*) { slot->observed = false; });
    }

    /// As above, for one field only.
    template <auto member, class Callback>
    [[nodiscard]] Observation observe(Callback callback) const
    {
        return observe([callback = std::move(callback)](const Changes<T>& changes) {
            if (changes.template has<member>())
                callback();
        });
    }

private:
    /// An observer that drops its own observation is running at that time and must outlive its call.
    struct Slot
    {
        explicit Slot(Observer called) : observer(std::move(called)) {}

        Observer observer;
        bool observed = true;
    };

    void notify(const Changes<T>& changes)
    {
        // A copy, since an observer may add or drop observers.
        const std::vector<std::weak_ptr<Slot>> current = *observers_;
        for (const std::weak_ptr<Slot>& slot : current) {
            if (const std::shared_ptr<Slot> alive = slot.lock(); alive && alive->observed)
                alive->observer(changes);
        }
        if (!observers_) // an edit made by an observer has cleaned up already
            return;
        std::erase_if(*observers_, [](const std::weak_ptr<Slot>& slot) { return slot.expired(); });
        if (observers_->empty())
            observers_.reset();
    }

    T value_;
    std::uint32_t revision_ = 0;
    mutable std::unique_ptr<std::vector<std::weak_ptr<Slot>>> observers_; ///< looking on changes nothing
};

} // namespace ledra
