// A Qt window as the geometry and resize services of the core see it. Place and size are
// those of the window on the desktop (Left and Top of its frame, Width and Height of its inner
// area, as Qt's move and resize take them), in twips. For the resize, the controls are the
// widgets placed by hand inside a client area, each with its place in its parent; frames and
// plain widgets are containers whose children are listed too.
#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <vector>

#include "core/FormWindow.h"

namespace vantrellion {

class QtFormControl : public FormControl {
  public:
    explicit QtFormControl(QWidget* w) : w_(w) {}
    bool HasVisible() const override { return true; }
    // The dynamic property "Tag", when the widget has one.
    bool Tag(std::string& tag) const override;
    bool Read(Geometry g, int32_t& value) const override;
    bool Write(Geometry g, double value) override;

  private:
    QPointer<QWidget> w_;
};

class QtFormWindow : public FormWindow {
  public:
    // client is the area whose controls scale; the window's own inner area when null.
    explicit QtFormWindow(QWidget& window, QWidget* client = nullptr);
    ~QtFormWindow() override;

    std::string Name() const override;
    float Left() const override;
    float Top() const override;
    float Width() const override;
    float Height() const override;
    void SetLeft(float v) override;
    void SetTop(float v) override;
    void SetWidth(float v) override;
    void SetHeight(float v) override;
    WindowState State() const override;
    bool Sizable() const override;
    float ScreenWidth() const override;
    float ScreenHeight() const override;
    bool CanPlace() const override;
    // The window's parent window, where it has one.
    bool OwnerPlace(float& left, float& top, float& width, float& height) const override;

    double ScaleWidth() const override;
    double ScaleHeight() const override;
    std::vector<FormControl*> Controls() override;
    void SetBusyPointer(bool busy) override;

  private:
    QSize ClientSize() const;
    void Collect(QWidget* parent);

    QWidget& w_;
    QPointer<QWidget> client_;
    std::vector<std::unique_ptr<QtFormControl>> controls_;
};

// Twips and pixels, rounded to the nearest pixel.
int PxRound(double twips);

}  // namespace vantrellion
