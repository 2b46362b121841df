// SPDX-License-Identifier: MIT
#include <common_HelpClient.h>
#include <common_IApplication.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_IPixmapUtility.h>
#include <common_IScriptRecorder.h>
#include <common_ISession.h>
#include <common_ISplashScreen.h>

common_HelpClient::~common_HelpClient() = default;

common_IApplication::~common_IApplication() = default;

common_IApplicationInfo::~common_IApplicationInfo() = default;

common_IIconUtility::~common_IIconUtility() = default;

common_IPixmapUtility::~common_IPixmapUtility() = default;

common_IScriptRecorder::~common_IScriptRecorder() = default;

common_ISession::~common_ISession() = default;

common_ISplashScreen::~common_ISplashScreen() = default;
