#pragma once

#include <QByteArrayView>

namespace ledra {

/// An open file or folder that closes itself. What fails says why in errno.
class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

    /// Makes what was written durable.
    [[nodiscard]] bool sync() const;

    [[nodiscard]] bool writeAll(QByteArrayView content) const;

private:
    int number_;
};

} // namespace ledra
