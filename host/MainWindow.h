#pragma once

#include "host/TabExtensions.h"

#include <QMainWindow>

class CameraSession;
class ExtensionArea;
class ImageView;
class QAction;
class QLabel;

namespace ZalCPP {
struct Frame;
}

/// The viewer's window on one camera. The session must outlive it.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(CameraSession& session, QWidget* parent = nullptr);

    void addExtensions(std::vector<TabExtension> extensions);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildActions();
    void buildCentre();
    void buildStatusBar();
    void connectSession();
    void showFrame(const ZalCPP::Frame& frame);
    void showAcquisition(bool acquiring);
    void showFrameCount();
    void showNotice(const QString& sentence);
    void onFailed(const QString& sentence);
    void onLost();
    QString lossSentence() const;

    CameraSession& m_session;
    QAction* m_acquire = nullptr;
    QLabel* m_notice = nullptr;
    ImageView* m_image = nullptr;
    ExtensionArea* m_extensions = nullptr;
    QLabel* m_state = nullptr;
    QLabel* m_frameCounter = nullptr;
};
