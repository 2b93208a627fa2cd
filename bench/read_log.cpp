// Reads a log as the plot pass does, and keeps and draws nothing: cut, parsed, classified.
//
//     read_log LOG

#include "log/FieldTable.h"
#include "log/QsoFilter.h"
#include "log/QsoStatus.h"
#include "log/RecordReader.h"
#include "platform/Numbers.h"

#include <cstdio>

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fputs("usage: read_log LOG\n", stderr);
        return 2;
    }
    tovrel::FieldTable fields;
    fields.loadFrom(tovrel::FieldTable::defaultFieldDictionary());
    fields.ResolveFieldRows();
    const tovrel::FieldRows& rows = fields.rows();
    const auto field = [&fields](int row) { return fields.trimmed(row); };
    const tovrel::Filter everything;
    int confirmed = 0;
    tovrel::LogFile file(argv[1]);
    tovrel::RecordReader log(file);
    for (;;) {
        const tovrel::Cut cut = log.next();
        if (cut == tovrel::Cut::End || cut == tovrel::Cut::Failed) {
            std::printf("%d\n", confirmed);
            return cut == tovrel::Cut::End ? 0 : 1;
        }
        fields.ParseRecordLine(log.line());
        const bool placed = tovrel::numberValue(field(rows.RowLatitude)) != 0.0 &&
                            tovrel::numberValue(field(rows.RowLongitude)) != 0.0;
        const bool passes = tovrel::passesFilter(everything, field(rows.RowBand),
                                                 field(rows.RowMode), field(rows.RowIota));
        const tovrel::QsoStatus status =
            tovrel::statusOf(field(rows.RowCall), field(rows.RowQslRcvd), field(rows.RowEqslRcvd),
                             field(rows.RowLotwRcvd));
        confirmed += placed && passes && status == tovrel::QsoStatus::Confirmed ? 1 : 0;
    }
}
