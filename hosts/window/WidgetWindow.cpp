#include "hosts/window/WidgetWindow.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QScreen>
#include <QStyleHints>
#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>
#include <vector>

#include "hosts/window/Compositor.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr int kEdge = 5;  // points, from which the window is made wider
constexpr int kNarrowest = static_cast<int>(PanelStyle::kNarrowest);    // points
constexpr int kWidest = static_cast<int>(4 * PanelStyle::kUsualWidth);  // points
constexpr double kRest = 1;  // seconds without a move, after which the place is kept

// Wayland lets no window know where it is, nor say where it should be.
bool placeIsKnown() {
  return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

// Without panels and docks.
QList<QRect> screenAreas() {
  QList<QRect> areas;
  for (const QScreen* screen : QGuiApplication::screens()) areas += screen->availableGeometry();
  return areas;
}

QString inQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Tab and Enter are for the items.
std::optional<PanelRequest> requestIn(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) return PanelRequest{PanelAction::copyPosition};
  if (event.matches(QKeySequence::Quit)) return PanelRequest{PanelAction::quit};
  if (event.key() == Qt::Key_Right) return requestOf(kRightKey);
  const auto characters = event.text().toUcs4();
  if (characters.size() != 1 || characters.front() < U' ') return std::nullopt;
  return requestOf(char32_t{characters.front()});
}

}  // namespace

WidgetWindow::WidgetWindow(QtRunLoop& loop, Scene& scene, PanelAdapter& panel, Theme& theme,
                           WindowMemory& memory, const WindowWishes& wishes)
    : loop_(loop),
      scene_(scene),
      panel_(panel),
      theme_(theme),
      memory_(memory),
      keepsPlace_(wishes.others == 0) {
  setTitle(QStringLiteral("Wayfell"));
  setFlag(Qt::FramelessWindowHint);
  setFlag(Qt::WindowStaysOnTopHint, wishes.alwaysOnTop);
  const bool translucent = !wishes.opaque && windowsAreComposed();
  theme_.style().setTranslucent(translucent);
  if (translucent) {
    QSurfaceFormat format = requestedFormat();
    format.setAlphaBufferSize(8);
    setFormat(format);
    setColor(Qt::transparent);
  } else {
    const auto fill = [this] { setColor(theme_.style().backing()); };
    connect(&theme_.style(), &PanelStyle::changed, this, fill);
    fill();
  }
  setResizeMode(SizeRootObjectToView);
  loadContents();
  takeKeptPlace();
  fitHeight();
  place_.stepAside(wishes.others, size(), screenAreas());
  fitHeight();
}

WidgetWindow::~WidgetWindow() {
  if (!keeping_) return;
  loop_.cancelTimer(*keeping_);
  keep();
}

void WidgetWindow::loadContents() {
  addPanelImports(*engine());
  setInitialProperties({{QStringLiteral("panel"), QVariant::fromValue<QObject*>(&panel_)},
                        {QStringLiteral("look"), QVariant::fromValue<QObject*>(&theme_.style())}});
  setSource(QUrl(QStringLiteral("qrc:/qt/qml/Wayfell/Panel/Shell.qml")));
  if (!rootObject()) throw std::runtime_error("the interface files cannot be loaded");
  rootObject()->setProperty("hiddenHint", inQt(localized("hidden: press h or click here")));
  connect(rootObject(), SIGNAL(contentHeightChanged()), this, SLOT(fitHeight()));
  connect(rootObject(), SIGNAL(panelAsked()), this, SLOT(showPanel()));
  connect(rootObject(), SIGNAL(keyAsked(int)), this, SLOT(actAsListed(int)));
}

void WidgetWindow::takeKeptPlace() {
  // As wide as the letters are large, so that they have room.
  const double usual = PanelStyle::kUsualWidth * theme_.style().fontScale();
  const int width =
      std::clamp(memory_.width().value_or(static_cast<int>(usual)), kNarrowest, kWidest);
  resize(width, height());
  rootObject()->setWidth(width);  // its height depends on it, and Qt sets it only when it shows it
  if (placeIsKnown()) place_ = WindowPlace(memory_.place());
}

void WidgetWindow::fitHeight() {
  const int height =
      static_cast<int>(std::ceil(rootObject()->property("contentHeight").toDouble()));
  // Least and greatest first: a window manager holds to those of the moment.
  setMinimumSize({kNarrowest, height});
  setMaximumSize({kWidest, height});
  const QSize size(width(), height);
  const auto corner = place_.cornerFor(size, screenAreas());
  if (!corner) return resize(size);
  own_.push_back(*corner);
  setGeometry(QRect(*corner, size));
}

// Where it has not moved to by itself, the user has moved it, or who manages windows.
void WidgetWindow::followPlace() {
  if (!placeIsKnown() || !isVisible() || at_ == position()) return;
  at_ = position();
  if (std::find(own_.begin(), own_.end(), position()) == own_.end()) place_.put(geometry());
}

void WidgetWindow::comeToFront(const QByteArray& activationToken) {
  setWindowStates(windowStates() & ~Qt::WindowMinimized);
  if (wasSeen_) showPanel();
  place_.bringBack();
  fitHeight();
  raise();
  if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken);
  requestActivate();
  alert(0);
}

void WidgetWindow::showPanel() {
  if (!scene_.onScreen()) panel_.act({PanelAction::showOrHide});
}

bool WidgetWindow::event(QEvent* event) {
  if (takesByItself(*event)) return true;
  bool known = false;
  loop_.guard([&] { known = QQuickView::event(event); });
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      grip(static_cast<const QMouseEvent&>(*event));
      break;
    case QEvent::MouseButtonRelease:
      grip_.reset();
      break;
    case QEvent::MouseMove:
      showEdge(static_cast<const QMouseEvent&>(*event));
      break;
    case QEvent::WindowStateChange:
    case QEvent::Hide:
      followVisibility();
      break;
    case QEvent::Close:
      loop_.stop();
      break;
    case QEvent::ApplicationPaletteChange:
      theme_.desktopChanged();
      break;
    default:
      break;
  }
  return known;
}

void WidgetWindow::exposeEvent(QExposeEvent* event) {
  QQuickView::exposeEvent(event);
  followVisibility();
}

// The widget is on the screen while its window is.
void WidgetWindow::followVisibility() {
  const bool seen = isExposed() && !(windowStates() & Qt::WindowMinimized);
  if (seen == std::exchange(wasSeen_, seen)) return;
  if (seen && !place_.chosen()) followPlace();
  loop_.guard([this, seen] {
    if (seen && hiddenWithWindow_) {
      scene_.appear();
    } else if (!seen) {
      hiddenWithWindow_ = scene_.onScreen();
      if (hiddenWithWindow_) scene_.disappear();
    }
  });
}

void WidgetWindow::keyPressEvent(QKeyEvent* event) {
  const bool isHalfAKey = event->key() >= Qt::Key_Shift && event->key() <= Qt::Key_ScrollLock;
  if (!isHalfAKey && hideKeys()) return;
  event->ignore();
  QQuickView::keyPressEvent(event);
  if (event->isAccepted()) return;
  if (const auto request = requestIn(*event)) act(*request);
}

void WidgetWindow::act(const PanelRequest& request) {
  switch (request.action) {
    case PanelAction::copyPosition:
      return panel_.copyPosition();
    case PanelAction::changeLook:
      theme_.next();
      return panel_.tell(
          QString::fromStdString(localizedStringWithFormat("look: %@", theme_.localizedName())));
    case PanelAction::tellKeys:
      return showKeys();
    case PanelAction::quit:
      close();
      return;
    default:
      panel_.act(request);
  }
}

void WidgetWindow::showKeys() {
  listed_.assign(std::begin(kPanelActions), std::end(kPanelActions));
  const auto own = scene_.actions();
  listed_.insert(listed_.end(), own.begin(), own.end());
  listed_.insert(listed_.end(), {PanelAction::copyPosition, PanelAction::changeLook,
                                 PanelAction::tellKeys, PanelAction::quit});
  QVariantList page;
  for (const PanelAction action : listed_) {
    ActionHelp help = helpOf(action);
    if (action == PanelAction::switchLayout) help.keys = "t";  // see requestIn
    page += QVariantMap{{"keys", inQt(help.keys)}, {"does", inQt(help.does)}};
  }
  rootObject()->setProperty("keys", page);
}

void WidgetWindow::actAsListed(int index) {
  if (const auto request = requestOf(listed_.at(static_cast<std::size_t>(index)))) act(*request);
}

bool WidgetWindow::hideKeys() {
  if (rootObject()->property("keys").toList().isEmpty()) return false;
  rootObject()->setProperty("keys", QVariantList());
  return true;
}

Qt::Edges WidgetWindow::edgesAt(const QPoint& point) const {
  if (point.x() < kEdge) return Qt::LeftEdge;
  if (point.x() >= width() - kEdge) return Qt::RightEdge;
  return {};
}

// What the items in the window do not get to see.
bool WidgetWindow::takesByItself(QEvent& event) {
  if (event.type() == QEvent::MouseMove && grip_) {
    hold(static_cast<QMouseEvent&>(event));
    return true;
  }
  if (event.type() != QEvent::MouseButtonPress) return false;
  const auto& press = static_cast<const QMouseEvent&>(event);
  const Qt::Edges edges = edgesAt(press.position().toPoint());
  if (edges == Qt::Edges() || press.button() != Qt::LeftButton) return false;
  grip_ = Grip{press.globalPosition().toPoint(), geometry(), edges};
  return true;
}

// Items that take the pointer are buttons, but for what is large and only to be copied.
void WidgetWindow::grip(const QMouseEvent& press) {
  const QObject* const taker = press.exclusiveGrabber(press.points().constFirst());
  const bool isButton = taker != nullptr && !taker->property("letsDrag").toBool();
  if (isButton || press.button() != Qt::LeftButton) return;
  grip_ = Grip{press.globalPosition().toPoint(), geometry(), {}};
}

void WidgetWindow::showEdge(const QMouseEvent& move) {
  if (move.buttons() == Qt::NoButton && edgesAt(move.position().toPoint()) != Qt::Edges()) {
    setCursor(Qt::SizeHorCursor);
  } else if (cursor().shape() == Qt::SizeHorCursor) {
    unsetCursor();
  }
}

// Where nobody manages windows, the window itself follows the pointer.
void WidgetWindow::hold(QMouseEvent& move) {
  const QPoint way = move.globalPosition().toPoint() - grip_->start;
  const bool movesWindow = grip_->edges == Qt::Edges();
  if (!grip_->held) {
    if (way.manhattanLength() < QGuiApplication::styleHints()->startDragDistance()) return;
    grip_->held = true;
    move.setExclusiveGrabber(move.points().constFirst(), nullptr);  // it will be no click
    if (movesWindow ? startSystemMove() : startSystemResize(grip_->edges)) {
      grip_.reset();
      return;
    }
  }
  if (movesWindow) {
    setPosition(grip_->geometry.topLeft() + way);
    return;
  }
  const bool left = grip_->edges.testFlag(Qt::LeftEdge);
  const int width =
      std::clamp(grip_->geometry.width() + (left ? -way.x() : way.x()), kNarrowest, kWidest);
  const int right = grip_->geometry.x() + grip_->geometry.width();
  setGeometry(left ? right - width : grip_->geometry.x(), y(), width, height());
}

void WidgetWindow::moveEvent(QMoveEvent* event) {
  QQuickView::moveEvent(event);
  followPlace();
  keepSoon();
}

void WidgetWindow::resizeEvent(QResizeEvent* event) {
  followPlace();  // before its contents may ask for another height
  QQuickView::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) keepSoon();
}

void WidgetWindow::keepSoon() {
  if (!isVisible()) return;
  if (keeping_) loop_.cancelTimer(*keeping_);
  keeping_ = loop_.scheduleTimer(kRest, false, [this] {
    keeping_.reset();
    keep();
  });
}

void WidgetWindow::keep() {
  own_.clear();
  if (keepsPlace_) memory_.keep(place_.chosen(), width());
}

}  // namespace wayfell
