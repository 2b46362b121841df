// SPDX-License-Identifier: MIT
#pragma once

#include <common_DomainEntity.h>
#include <common_IApplication.h>
#include <common_IApplicationInfo.h>
#include <common_IScriptRecorder.h>
#include <common_ISession.h>
#include <common_ISplashScreen.h>
#include <common_ServiceOf.h>
#include <common_UserMessage.h>

#include <QString>
#include <QStringList>
#include <QVector>

/// The application's services as the tests offer them: each is the service of its kind from its
/// construction to its end, and notes what is asked of it.

/// Offers itself as the service T for as long as it lives, or until another one does.
template <typename T>
class OfferedService : public T
{
public:
    OfferedService(const OfferedService&) = delete;
    OfferedService& operator=(const OfferedService&) = delete;
    ~OfferedService() override
    {
        if (common_ServiceOf<T>::hasService() && GET_SERVICE(T) == this) {
            common_ServiceOf<T>::setService(nullptr);
        }
    }

protected:
    OfferedService() { common_ServiceOf<T>::setService(this); }
};

class FakeApplication : public OfferedService<common_IApplication>
{
public:
    explicit FakeApplication(bool isNonInteractive = false) : nonInteractive(isNonInteractive) {}

    bool isNonInteractive() const override { return nonInteractive; }

    bool nonInteractive;
};

class FakeApplicationInfo : public OfferedService<common_IApplicationInfo>
{
public:
    /// The user's and the installation's settings are both in the directory until they are set.
    explicit FakeApplicationInfo(const QString& directory = QString())
        : installation(directory), userSettings(directory), defaultSettings(directory)
    {}

    QString applicationName() const override { return name; }
    QString installationDirectory() const override { return installation; }
    QString userSettingsDirectory() const override { return userSettings; }
    QString defaultSettingsDirectory() const override { return defaultSettings; }
    QString initialRecentFile() const override { return initialFile; }

    QString name = QStringLiteral("Tests");
    QString installation;
    QString userSettings;
    QString defaultSettings;
    QString initialFile;
};

class FakeSession : public OfferedService<common_ISession>
{
public:
    struct Shown
    {
        common_ActivePtr<common_UserMessage> message;
        QWidget* parent;
    };

    void showUserMessage(common_ActivePtr<common_UserMessage> message, QWidget* parent) override
    {
        shown.append({message, parent});
    }

    QVector<Shown> shown;
};

class FakeSplashScreen : public OfferedService<common_ISplashScreen>
{
public:
    void hide() override { calls.append(QStringLiteral("hide")); }
    void show() override { calls.append(QStringLiteral("show")); }

    QStringList calls;
};

class FakeScriptRecorder : public OfferedService<common_IScriptRecorder>
{
public:
    struct Recorded
    {
        common_ActivePtr<common_DomainEntity> entity;
        QString command;
    };

    void recordCommand(common_ActivePtr<common_DomainEntity> entity,
                       const QString& command) override
    {
        recorded.append({entity, command});
    }

    QStringList commands() const
    {
        QStringList texts;
        for (const Recorded& record : recorded) {
            texts.append(record.command);
        }
        return texts;
    }

    QVector<Recorded> recorded;
};
