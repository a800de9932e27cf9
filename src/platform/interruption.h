#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <csignal>
#include <memory>

namespace ledra {

/// While it lives, Ctrl-C and the wish that the program ends (SIGINT, SIGTERM) do not end the process but
/// arrive as a signal in the event loop. To be made before the program starts threads.
class Interruption : public QObject
{
    Q_OBJECT

public:
    Interruption();
    ~Interruption() override;

Q_SIGNALS:
    void requested();

private:
    sigset_t before_{};
    int descriptor_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace ledra
