#include "app/instance/InstanceMessage.h"

#include "core/json/JsonObjectReader.h"
#include "core/text/BoundedText.h"

#include <QJsonDocument>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

} // namespace

QByteArray InstanceMessage::toJson() const
{
    QJsonObject json;
    if (show) {
        json.insert("show"_L1,
                    QJsonObject{{u"address"_s, show->address},
                                {u"activationToken"_s, show->activationToken}});
    }
    if (saved) {
        json.insert("saved"_L1,
                    QJsonObject{{u"record"_s, saved->record.toJson()},
                                {u"historyTitle"_s, saved->historyTitle}});
    }
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

InstanceMessage InstanceMessage::fromJson(const QByteArray &utf8)
{
    const JsonObjectReader json = JsonObjectReader::fromDocument(utf8);
    InstanceMessage message;
    if (const auto show = json.object("show"_L1)) {
        message.show =
            Show{show->requiredText("address"_L1), show->requiredText("activationToken"_L1)};
    }
    if (const auto saved = json.object("saved"_L1)) {
        const auto record = saved->object("record"_L1);
        if (!record)
            saved->fail("record"_L1, u"an object"_s);
        message.saved = Saved{DownloadRecord::fromJson(*record),
                              boundedText(saved->requiredText("historyTitle"_L1), longestTitle)};
    }
    return message;
}

} // namespace clipwren
