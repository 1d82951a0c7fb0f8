<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>Wexel</name>
    <message>
        <source>  Try restarting the app or contact admin.</source>
        <translation>  جرّب إعادة تشغيل التطبيق أو تواصل مع المسؤول.</translation>
    </message>
    <message>
        <source>ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>رُفضت كل الأذونات الأخرى أو لم تُطلب.</translation>
    </message>
    <message>
        <source>ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>رُفضت كل الأذونات أو لم تُطلب.</translation>
    </message>
    <message>
        <source>APP VERSION</source>
        <translation>إصدار التطبيق</translation>
    </message>
    <message>
        <source>App's administrator has disabled bug reporting for now  </source>
        <translation>عطّل مسؤول التطبيق الإبلاغ عن الأخطاء حاليًا  </translation>
    </message>
    <message>
        <source>Attachment</source>
        <translation>مرفق</translation>
    </message>
    <message>
        <source>AVAILABLE MEMORY</source>
        <translation>الذاكرة المتاحة</translation>
    </message>
    <message>
        <source>AVAILABLE STORAGE</source>
        <translation>مساحة التخزين المتاحة</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>رجوع</translation>
    </message>
    <message>
        <source>BLUR</source>
        <translation>تمويه</translation>
    </message>
    <message>
        <source>Bug</source>
        <translation>خطأ</translation>
    </message>
    <message>
        <source>Bug submitted successfully.</source>
        <translation>أُرسل الخطأ بنجاح.</translation>
    </message>
    <message>
        <source>Cellular</source>
        <translation>شبكة الجوال</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>مسح</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Close palette</source>
        <translation>إغلاق لوحة الألوان</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>اللون %1</translation>
    </message>
    <message>
        <source>CURRENT VIEW</source>
        <translation>العرض الحالي</translation>
    </message>
    <message>
        <source>Describe the bug and tap Submit</source>
        <translation>صِف الخطأ ثم اضغط إرسال</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>الجهاز</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Done. </source>
        <translation>تم. </translation>
    </message>
    <message>
        <source>DRAW</source>
        <translation>رسم</translation>
    </message>
    <message>
        <source>Essentials</source>
        <translation>الأساسيات</translation>
    </message>
    <message>
        <source>Granted permissions</source>
        <translation>الأذونات الممنوحة</translation>
    </message>
    <message>
        <source>How to report better bugs?</source>
        <translation>كيف تُبلغ عن الأخطاء بشكل أفضل؟</translation>
    </message>
    <message>
        <source>Inspect bug</source>
        <translation>معاينة التقرير</translation>
    </message>
    <message>
        <source>LOCALE</source>
        <translation>المنطقة</translation>
    </message>
    <message>
        <source>Mark the bug</source>
        <translation>حدّد الخطأ</translation>
    </message>
    <message>
        <source>NETWORK</source>
        <translation>الشبكة</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>التالي</translation>
    </message>
    <message>
        <source>NOT AVAILABLE</source>
        <translation>غير متاح</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>غير متصل</translation>
    </message>
    <message>
        <source>Optional, if you're available for a follow-up</source>
        <translation>اختياري، إن أمكن التواصل معك لاحقًا</translation>
    </message>
    <message>
        <source>PALETTE</source>
        <translation>الألوان</translation>
    </message>
    <message>
        <source>Quick Facts</source>
        <translation>حقائق سريعة</translation>
    </message>
    <message>
        <source>Quick Facts not enabled.</source>
        <translation>الحقائق السريعة غير مفعّلة.</translation>
    </message>
    <message>
        <source>Read here</source>
        <translation>اقرأ هنا</translation>
    </message>
    <message>
        <source>Remove screenshot</source>
        <translation>إزالة لقطة الشاشة</translation>
    </message>
    <message>
        <source>Report a bug</source>
        <translation>الإبلاغ عن خطأ</translation>
    </message>
    <message>
        <source>Reporting disabled</source>
        <translation>الإبلاغ معطّل</translation>
    </message>
    <message>
        <source>RESOLUTION</source>
        <translation>الدقة</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>لقطة شاشة</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>إرسال</translation>
    </message>
    <message>
        <source>WEXEL SDK VERSION</source>
        <translation>إصدار حزمة WEXEL</translation>
    </message>
    <message>
        <source>WiFi</source>
        <translation>واي فاي</translation>
    </message>
    <message>
        <source>Wrap-up</source>
        <translation>اللمسة الأخيرة</translation>
    </message>
    <message>
        <source>Your email</source>
        <translation>بريدك الإلكتروني</translation>
    </message>
</context>
</TS>
