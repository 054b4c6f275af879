#include "host/MainWindow.h"

#include "host/CameraSession.h"
#include "host/ExtensionArea.h"
#include "host/FrameConverter.h"
#include "host/ImageView.h"

#include <QAction>
#include <QCoreApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

QLabel* makeStatusLabel(const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(8, 2, 8, 2);
    return label;
}

/// A bar above everything else that stands out under every palette.
QLabel* makeNoticeBar()
{
    auto* bar = new QLabel;
    bar->setObjectName(QStringLiteral("notice"));
    bar->setWordWrap(true);
    bar->setMargin(8);
    bar->setTextFormat(Qt::PlainText);
    bar->setAutoFillBackground(true);
    QPalette amber;
    amber.setColor(QPalette::Window, QColor(0xf6, 0xc3, 0x43));
    amber.setColor(QPalette::WindowText, QColor(0x1c, 0x1c, 0x1c));
    bar->setPalette(amber);
    bar->hide();
    return bar;
}

/// A triangle to start and a square to stop, in the colour of the text beside it.
QIcon makeIcon(bool stop, const QColor& colour)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    if (stop)
        painter.drawRect(6, 6, 20, 20);
    else
        painter.drawPolygon(QPolygon({QPoint(7, 4), QPoint(28, 16), QPoint(7, 28)}));
    return QIcon(pixmap);
}

} // namespace

MainWindow::MainWindow(CameraSession& session, QWidget* parent)
    : QMainWindow(parent), m_session(session)
{
    setWindowTitle(tr("%1 - ZalViewer").arg(session.cameraName()));
    buildActions();
    buildCentre();
    buildStatusBar();
    connectSession();
    showAcquisition(session.isAcquiring());
}

void MainWindow::buildActions()
{
    QToolBar* bar = addToolBar(tr("Acquisition"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_acquire = bar->addAction(QString());
    m_acquire->setObjectName(QStringLiteral("actionAcquire"));
    m_acquire->setCheckable(true);
    m_acquire->setShortcut(Qt::Key_F5);

    auto* quit = new QAction(tr("Quit"), this);
    quit->setObjectName(QStringLiteral("actionQuit"));
    quit->setShortcut(QStringLiteral("Ctrl+Q"));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit); // Keyboard only.
}

void MainWindow::buildCentre()
{
    m_notice = makeNoticeBar();
    m_image = new ImageView;
    m_image->setObjectName(QStringLiteral("imageView"));
    m_image->showText(tr("No image yet. Start the acquisition to see one."));
    m_extensions = new ExtensionArea;
    m_extensions->setObjectName(QStringLiteral("extensionArea"));

    auto* splitter = new QSplitter;
    splitter->addWidget(m_image);
    splitter->addWidget(m_extensions);
    splitter->setStretchFactor(0, 1);
    splitter->setChildrenCollapsible(false);

    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice);
    layout->addWidget(splitter, 1);
    setCentralWidget(centre);
}

void MainWindow::buildStatusBar()
{
    m_state = makeStatusLabel("acquisitionState");
    m_frameCounter = makeStatusLabel("frameCounter");
    QLabel* camera = makeStatusLabel("cameraName");
    camera->setText(m_session.cameraName());
    statusBar()->addWidget(m_state);
    statusBar()->addWidget(m_frameCounter);
    statusBar()->addPermanentWidget(camera);
}

void MainWindow::connectSession()
{
    connect(m_acquire, &QAction::toggled, &m_session, &CameraSession::setAcquiring);
    connect(&m_session, &CameraSession::acquisitionChanged, this, &MainWindow::showAcquisition);
    connect(&m_session, &CameraSession::acquisitionChanged, m_extensions,
            &ExtensionArea::acquisitionChanged);
    connect(&m_session, &CameraSession::frameArrived, this, &MainWindow::showFrame);
    connect(&m_session, &CameraSession::failed, this, &MainWindow::onFailed);
    connect(&m_session, &CameraSession::lost, this, &MainWindow::onLost);
}

void MainWindow::addExtensions(std::vector<TabExtension> extensions)
{
    m_extensions->add(std::move(extensions));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    m_session.setAcquiring(false);
    QMainWindow::closeEvent(event);
}

void MainWindow::showFrame(const ZalCPP::Frame& frame)
{
    QString problem;
    const QImage image = convertFrame(frame, problem);
    if (image.isNull())
        m_image->showText(problem);
    else
        m_image->showImage(image);
    showFrameCount();
}

void MainWindow::showAcquisition(bool acquiring)
{
    m_acquire->setChecked(acquiring);
    m_acquire->setText(acquiring ? tr("Stop") : tr("Start"));
    m_acquire->setToolTip(acquiring ? tr("Stop the acquisition (F5)")
                                    : tr("Start the acquisition (F5)"));
    m_acquire->setIcon(makeIcon(acquiring, palette().color(QPalette::ButtonText)));
    m_state->setText(acquiring ? tr("Acquiring") : tr("Stopped"));
    if (acquiring)
        showNotice(QString());
    showFrameCount();
}

void MainWindow::showFrameCount()
{
    m_frameCounter->setText(tr("Frames: %1").arg(m_session.frameCount()));
}

void MainWindow::showNotice(const QString& sentence)
{
    m_notice->setText(sentence);
    m_notice->setVisible(!sentence.isEmpty());
}

void MainWindow::onFailed(const QString& sentence)
{
    showNotice(sentence);
    m_acquire->setChecked(m_session.isAcquiring());
}

QString MainWindow::lossSentence() const
{
    const QString camera = m_session.cameraName();
    if (m_session.loss() != ZalCPP::CameraLoss::ControlTaken) {
        return tr("The connection to the camera %1 is lost. Close the viewer and open it again "
                  "when the camera is back.")
            .arg(camera);
    }
    const char* reason = ZalCPP::LossText(m_session.loss());
    return tr("The connection to the camera %1 is lost. %2 Close the viewer and open it again when "
              "the camera is free.")
        .arg(camera, QCoreApplication::translate("ZalCPP", reason));
}

void MainWindow::onLost()
{
    m_acquire->setEnabled(false);
    m_state->setText(tr("Camera lost"));
    showNotice(lossSentence());
}
