#include "standin/answers/FileNameAddition.h"

#include "standin/settings/HostKeys.h"

FileNameAddition FileNameAddition::read(SaveModes::Family family,
                                        const std::function<QVariant(const QString &key)> &setting)
{
    const HostKeys::FileNameKeys &keys = HostKeys::save(family).fileName;
    const Keys::NumberDigitKeys digitKeys = SaveModes::digitKeys(SaveModes::fileNameKind(family));
    const auto digits = [&](const QString &key) {
        return key.isEmpty() ? 0 : setting(key).toInt();
    };
    FileNameAddition addition;
    addition.text = setting(keys.addTextValue).toString();
    addition.addsNumber = setting(keys.addNumber).toBool();
    addition.sizesDigits = setting(keys.addNumberFormat).toString() == QLatin1String("auto");
    addition.digits = {digits(digitKeys.camera), digits(digitKeys.head), digits(digitKeys.session)};
    addition.addsDetails = setting(keys.addDetail).toBool();
    addition.details = setting(keys.details).toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
    addition.connector = setting(keys.detailsConnect).toString();
    return addition;
}

QString FileNameAddition::compose(int sequence, const PathRules::NumberFacts &device,
                                  bool isFileMode,
                                  const std::function<QString(const QString &id)> &detail) const
{
    QString result = text;
    if (addsNumber) {
        FolderSettings settings;
        settings.sizesDigits = sizesDigits;
        settings.digits = digits;
        const PathRules::FolderNumber number =
            PathRules::folderNumber(settings, device, isFileMode);
        result += NumberText::compose(number.camera, number.head, sequence, number.digits);
    }
    if (!addsDetails)
        return result;
    for (const QString &id : details) {
        const QString part = detail(id);
        if (part.isEmpty())
            continue;
        if (!result.isEmpty())
            result += connector;
        result += part;
    }
    return result;
}
