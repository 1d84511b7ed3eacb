#include "PreviewKind.h"

#include <QFileInfo>
#include <QImageReader>
#include <QSet>

namespace {
const QSet<QString> &mediaExtensions()
{
    static const QSet<QString> list = {
        "amr",  "adts", "3gpp", "cdda", "sdv",  "amc",  "rtsp", "sdp",  "qhtm", "mp2",  "dvc!",
        "mp3",  "scc",  "WAV",  "mp4",  "m1s",  "WAVE", "mpa",  "m4p",  "qtz",  "gsm",  "mxfd",
        "aiff", "m1v",  "qt",   "MooV", "aif",  "Sd2f", "m3u",  "midi", "MPG3", "GSM",  "ac-3",
        "mpg",  "m4v",  "mpeg", "qtpf", "MP3",  "cel",  "SwaT", "ULAW", "3gp",  "M1A",  "dif",
        "QT",   "dat",  "mpm",  "grip", "caff", "GIFf", "MOV",  "MPGv", "MPG",  "au",   "snd",
        "smf",  "qht",  "AIFF", "MPGa", "flc",  "MQV",  "attr", "mov",  "dv",   "pls",  "smi",
        "MPG2", "SMIL", "skin", "mpv",  "m15",  "3gp2", "mqv",  "m1a",  "sml",  "AIFC", "wav",
        "FLI",  "m2a",  "fli",  "MPGx", "ac3",  "avi",  "mpg4", "m4a",  "MPGV", "swa",  "SMI",
        "bwf",  "aac",  "m4b",  "kar",  "MPEG", "MPGA", "vfw",  "dvd",  "m75",  "VfW",  "3g2",
        "smil", "Mp3",  "atr",  "embd", "M1V",  "mid",  "sd2",  "Midi", "CLCP", "caf",  "aifc",
        "ulw",  "PLAY"};
    return list;
}

bool isReadableImageExtension(const QString &extension)
{
    static const QSet<QString> formats = [] {
        QSet<QString> set;
        for (const QByteArray &format : QImageReader::supportedImageFormats())
            set.insert(QString::fromLatin1(format).toLower());
        return set;
    }();
    return !extension.isEmpty() && formats.contains(extension.toLower());
}
} // namespace

namespace PreviewKind {

bool isMediaExtension(const QString &extension)
{
    return mediaExtensions().contains(extension);
}

Kind forPath(const QString &path)
{
    const QString extension = QFileInfo(path).suffix();
    if (extension == QLatin1String("pdf"))
        return Pdf;
    if (isReadableImageExtension(extension))
        return Image;
    if (isMediaExtension(extension))
        return Media;
    if (extension == QLatin1String("htm") || extension == QLatin1String("html"))
        return Html;
    if (extension == QLatin1String("webarchive"))
        return WebArchive;
    if (extension == QLatin1String("txt"))
        return Text;
    if (extension == QLatin1String("rtf"))
        return Rtf;
    if (extension == QLatin1String("rtfd"))
        return Rtfd;
    return Other;
}

QString mediaPage(const QUrl &file)
{
    return QStringLiteral(
               "<html><body style=\"background-color:black; margin:0px;\"><video id=\"KK\" "
               "src=\"%1\" controls autoplay><script language=\"javascript\" "
               "type=\"text/javascript\">var b = document.getElementById('KK');w = "
               "document.width;b.style.width = w + 'px';window.addEventListener('resize', "
               "function(event){var b = document.getElementById('KK');w = "
               "document.width;b.style.width = w + 'px';});</script></body></html>")
        .arg(QString::fromUtf8(file.toEncoded()));
}

} // namespace PreviewKind
