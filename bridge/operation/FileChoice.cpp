#include "bridge/operation/FileChoice.h"

namespace {

FileChoice::Answer &presetAnswer()
{
    static FileChoice::Answer answer;
    return answer;
}

QStringList listOf(const QString &path)
{
    return path.isEmpty() ? QStringList() : QStringList(path);
}

}

namespace FileChoice {

QStringList ask(const Question &q)
{
    if (presetAnswer())
        return presetAnswer()(q);
    switch (q.kind) {
    case Kind::SaveFile:
        return listOf(QFileDialog::getSaveFileName(q.parent, q.caption, q.start, q.filter, nullptr,
                                                   q.options));
    case Kind::OpenFile:
        return listOf(QFileDialog::getOpenFileName(q.parent, q.caption, q.start, q.filter, nullptr,
                                                   q.options));
    case Kind::OpenFiles:
        return QFileDialog::getOpenFileNames(q.parent, q.caption, q.start, q.filter, nullptr,
                                             q.options);
    case Kind::Folder:
        return listOf(QFileDialog::getExistingDirectory(q.parent, q.caption, q.start, q.options));
    }
    return QStringList();
}

QString askOne(const Question &question)
{
    const QStringList paths = ask(question);
    return paths.isEmpty() ? QString() : paths.first();
}

void setAnswer(const Answer &answer)
{
    presetAnswer() = answer;
}

}
