# One precompiled header for everything that links Qt Core and QCoro.
function(vantor_precompile target)
  target_precompile_headers(${target} PRIVATE <QCoroTask> <QByteArray> <QObject> <QString> <QUrl>
                            <chrono> <functional> <memory> <optional> <stop_token> <string>
                            <string_view> <vector>)
endfunction()
