<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>Wexel</name>
    <message>
        <source>  Try restarting the app or contact admin.</source>
        <translation>  アプリを再起動するか、管理者に連絡してください。</translation>
    </message>
    <message>
        <source>ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>その他はすべて拒否されたか、要求されていません。</translation>
    </message>
    <message>
        <source>ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>すべての権限が拒否されたか、要求されていません。</translation>
    </message>
    <message>
        <source>APP VERSION</source>
        <translation>アプリのバージョン</translation>
    </message>
    <message>
        <source>App's administrator has disabled bug reporting for now  </source>
        <translation>アプリの管理者が現在バグ報告を無効にしています  </translation>
    </message>
    <message>
        <source>Attachment</source>
        <translation>添付</translation>
    </message>
    <message>
        <source>AVAILABLE MEMORY</source>
        <translation>空きメモリ</translation>
    </message>
    <message>
        <source>AVAILABLE STORAGE</source>
        <translation>空きストレージ</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>BLUR</source>
        <translation>ぼかし</translation>
    </message>
    <message>
        <source>Bug</source>
        <translation>バグ</translation>
    </message>
    <message>
        <source>Bug submitted successfully.</source>
        <translation>バグを送信しました。</translation>
    </message>
    <message>
        <source>Cellular</source>
        <translation>モバイル通信</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Close palette</source>
        <translation>パレットを閉じる</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>色 %1</translation>
    </message>
    <message>
        <source>CURRENT VIEW</source>
        <translation>現在の画面</translation>
    </message>
    <message>
        <source>Describe the bug and tap Submit</source>
        <translation>バグを説明して「送信」をタップ</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Done. </source>
        <translation>完了。</translation>
    </message>
    <message>
        <source>DRAW</source>
        <translation>描画</translation>
    </message>
    <message>
        <source>Essentials</source>
        <translation>基本情報</translation>
    </message>
    <message>
        <source>Granted permissions</source>
        <translation>許可された権限</translation>
    </message>
    <message>
        <source>How to report better bugs?</source>
        <translation>より良いバグ報告の方法は？</translation>
    </message>
    <message>
        <source>Inspect bug</source>
        <translation>報告の内容を確認</translation>
    </message>
    <message>
        <source>LOCALE</source>
        <translation>地域</translation>
    </message>
    <message>
        <source>Mark the bug</source>
        <translation>バグに印を付ける</translation>
    </message>
    <message>
        <source>NETWORK</source>
        <translation>ネットワーク</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>NOT AVAILABLE</source>
        <translation>利用不可</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>オフライン</translation>
    </message>
    <message>
        <source>Optional, if you're available for a follow-up</source>
        <translation>任意：後で連絡可能な場合</translation>
    </message>
    <message>
        <source>PALETTE</source>
        <translation>パレット</translation>
    </message>
    <message>
        <source>Quick Facts</source>
        <translation>クイック情報</translation>
    </message>
    <message>
        <source>Quick Facts not enabled.</source>
        <translation>クイック情報は有効になっていません。</translation>
    </message>
    <message>
        <source>Read here</source>
        <translation>こちら</translation>
    </message>
    <message>
        <source>Remove screenshot</source>
        <translation>スクリーンショットを削除</translation>
    </message>
    <message>
        <source>Report a bug</source>
        <translation>バグを報告</translation>
    </message>
    <message>
        <source>Reporting disabled</source>
        <translation>報告は無効です</translation>
    </message>
    <message>
        <source>RESOLUTION</source>
        <translation>解像度</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>スクリーンショット</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>送信</translation>
    </message>
    <message>
        <source>WEXEL SDK VERSION</source>
        <translation>WEXEL SDK のバージョン</translation>
    </message>
    <message>
        <source>WiFi</source>
        <translation>Wi-Fi</translation>
    </message>
    <message>
        <source>Wrap-up</source>
        <translation>仕上げ</translation>
    </message>
    <message>
        <source>Your email</source>
        <translation>メールアドレス</translation>
    </message>
</context>
</TS>
