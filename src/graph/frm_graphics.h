#pragma once

#include <QIcon>
#include <QWidget>

#include <array>

/// The hidden form that holds the pictures of the tray icon. Each is rendered once per size, so
/// that a step of the animation only passes one on.
class frmGraphics final : public QWidget
{
    Q_OBJECT

public:
    /// Loads the pictures and sets `GraphicsFormLoaded`; the destructor clears it. The flag must
    /// outlive the form.
    explicit frmGraphics(bool &GraphicsFormLoaded);
    ~frmGraphics() override;
    Q_DISABLE_COPY_MOVE(frmGraphics)

    std::array<QIcon, 11> taskBarIcon;       ///< Idle: the last one stays until the next cycle.
    std::array<QIcon, 11> taskBarActiveIcon; ///< A request has been started.

private:
    bool &m_loaded;
};

/// The picture that the tray icon rests on, for the title bars and the task bar.
[[nodiscard]] QIcon ProgramIcon();
