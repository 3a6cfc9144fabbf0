#pragma once

#include "modular/roulette/RouletteView.h"
#include "quick/bridge/ViewBridge.h"

#include <QPointer>
#include <QQuickPaintedItem>

namespace orrelo::quick {

class RouletteBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(double side READ side CONSTANT)
  /// In degrees, as all angles here: of the wheel at rest.
  Q_PROPERTY(double rotation READ rotation NOTIFY stateChanged)
  Q_PROPERTY(bool isSpinning READ isSpinning NOTIFY stateChanged)
  Q_PROPERTY(double spinFrom READ spinFrom NOTIFY stateChanged)
  Q_PROPERTY(double spinTo READ spinTo NOTIFY stateChanged)
  Q_PROPERTY(int spinDuration READ spinDuration NOTIFY stateChanged)
  Q_PROPERTY(bool isPaused READ isPaused NOTIFY stateChanged)
  /// The prizes, and the one that was won.
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)

 public:
  RouletteBridge(const std::shared_ptr<RouletteView>& view, QObject* parent);

  const RouletteDrawing& drawing() const { return drawing_; }
  double side() const { return RouletteView::side; }
  double rotation() const;
  bool isSpinning() const { return roulette_.state.value().spin.has_value(); }
  double spinFrom() const;
  double spinTo() const;
  int spinDuration() const;
  bool isPaused() const { return roulette_.state.value().isPaused; }
  QString accessibilityLabel() const;

  Q_INVOKABLE void wheelDidAppear() { roulette_.wheelDidAppear(); }
  Q_INVOKABLE void animationDidStop() { roulette_.animationDidStop(true); }

 private:
  Animation spin() const { return roulette_.state.value().spin.value_or(Animation()); }

  RouletteView& roulette_;
  const RouletteDrawing drawing_;
};

/// Paints what stands still beneath the wheel, the wheel itself, or what stands still above it.
class RoulettePart : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::RouletteBridge* roulette MEMBER roulette_ NOTIFY rouletteChanged REQUIRED)
  Q_PROPERTY(Part part MEMBER part_ NOTIFY partChanged REQUIRED)
  /// How far the part is turned as it is painted, in degrees: sharper than to turn what is painted already.
  Q_PROPERTY(double turn READ turn WRITE setTurn NOTIFY turnChanged)
  Q_PROPERTY(QString fontFamily MEMBER fontFamily_ NOTIFY fontFamilyChanged)

 public:
  enum Part { Base, Wheel, Cover };
  Q_ENUM(Part)

  explicit RoulettePart(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) { setAntialiasing(true); }

  double turn() const { return turn_; }
  void setTurn(double turn);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void rouletteChanged();
  void partChanged();
  void turnChanged();
  void fontFamilyChanged();
  /// It has been painted, at least once.
  void painted();

 private:
  QPointer<RouletteBridge> roulette_;
  Part part_ = Base;
  double turn_ = 0.0;
  QString fontFamily_;
};

}  // namespace orrelo::quick
