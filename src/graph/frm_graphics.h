#pragma once

#include <QIcon>
#include <QWidget>

#include <array>

/// The hidden form that holds the pictures of the tray icon. Each is rendered once in a size, so
/// that a step of the animation only hands one over.
class frmGraphics final : public QWidget
{
    Q_OBJECT

public:
    /// Loads the pictures and sets `GraphicsFormLoaded`; the form's end clears it. The flag
    /// outlives the form.
    explicit frmGraphics(bool &GraphicsFormLoaded);
    ~frmGraphics() override;
    Q_DISABLE_COPY_MOVE(frmGraphics)

    std::array<QIcon, 11> taskBarIcon;       ///< Idle: the last one stays until the next cycle.
    std::array<QIcon, 11> taskBarActiveIcon; ///< A request has been started.

private:
    bool &m_loaded;
};

/// The picture the tray icon rests at, for the title bars and the task bar.
[[nodiscard]] QIcon ProgramIcon();
