<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AtlasSources</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of %1 maps cannot be shown; the list of maps tells why. %2</source>
        <translation>
            <numerusform>%n of %1 maps cannot be shown; the list of maps tells why. %2</numerusform>
            <numerusform>%n of %1 maps cannot be shown; the list of maps tells why. %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::CalibDocument</name>
    <message numerus="yes">
        <source>Remove %n points</source>
        <translation>
            <numerusform>Remove %n point</numerusform>
            <numerusform>Remove %n points</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Restore %n points</source>
        <translation>
            <numerusform>Restore %n point</numerusform>
            <numerusform>Restore %n points</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Import %n point(s)</source>
        <translation>
            <numerusform>Import %n point</numerusform>
            <numerusform>Import %n points</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The calibration was changed by another program: %n point(s) not as before; their names are dropped.</source>
        <translation>
            <numerusform>The calibration was changed by another program: %n point is not as it was, and its name is dropped.</numerusform>
            <numerusform>The calibration was changed by another program: %n points are not as they were, and their names are dropped.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The file with the points&apos; names is damaged: %n of its lines could not be read.</source>
        <translation>
            <numerusform>The file with the points&apos; names is damaged: %n of its lines could not be read.</numerusform>
            <numerusform>The file with the points&apos; names is damaged: %n of its lines could not be read.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>&quot;%1&quot; needs at least %2 points, and there are %n. Add %3 more, spread over the map.</source>
        <translation>
            <numerusform>&quot;%1&quot; needs at least %2 points, and there is %n. Add %3 more, spread over the map.</numerusform>
            <numerusform>&quot;%1&quot; needs at least %2 points, and there are %n. Add %3 more, spread over the map.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n points do not lie in the map&apos;s zone %3, first of all %1 in zone %2. They are converted; check the zones.</source>
        <translation>
            <numerusform>%n point does not lie in the map&apos;s zone %3: %1 in zone %2. It is converted; check the zone.</numerusform>
            <numerusform>%n points do not lie in the map&apos;s zone %3, first of all %1 in zone %2. They are converted; check the zones.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Parallel %1 is not used yet: a line needs 3 points, add %n more.</source>
        <translation>
            <numerusform>Parallel %1 is not used yet: a line needs 3 points, add %n more.</numerusform>
            <numerusform>Parallel %1 is not used yet: a line needs 3 points, add %n more.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Meridian %1 is not used yet: a line needs 3 points, add %n more.</source>
        <translation>
            <numerusform>Meridian %1 is not used yet: a line needs 3 points, add %n more.</numerusform>
            <numerusform>Meridian %1 is not used yet: a line needs 3 points, add %n more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::CalibrationWorkbench</name>
    <message numerus="yes">
        <source>%n point(s) now</source>
        <translation>
            <numerusform>%n point now</numerusform>
            <numerusform>%n points now</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::LandmarkDocument</name>
    <message numerus="yes">
        <source>Import %n landmark(s)</source>
        <translation>
            <numerusform>Import %n landmark</numerusform>
            <numerusform>Import %n landmarks</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::LandmarkTableModel</name>
    <message numerus="yes">
        <source>%Ln landmark(s)</source>
        <translation>
            <numerusform>%Ln landmark</numerusform>
            <numerusform>%Ln landmarks</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln found</source>
        <translation>
            <numerusform>%Ln found</numerusform>
            <numerusform>%Ln found</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::LandmarkTool</name>
    <message numerus="yes">
        <source>Deleted %n landmark(s)</source>
        <translation>
            <numerusform>Deleted %n landmark</numerusform>
            <numerusform>Deleted %n landmarks</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::LandmarkWorkbench</name>
    <message numerus="yes">
        <source>%n landmark(s)</source>
        <translation>
            <numerusform>%n landmark</numerusform>
            <numerusform>%n landmarks</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n landmark(s) have an upright cross or no shape. The file cannot keep these: they come back as diagonal crosses.</source>
        <translation>
            <numerusform>%n landmark has an upright cross or no shape. The file cannot keep that: it comes back as a diagonal cross.</numerusform>
            <numerusform>%n landmarks have an upright cross or no shape. The file cannot keep these: they come back as diagonal crosses.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n landmark(s) imported</source>
        <translation>
            <numerusform>%n landmark imported</numerusform>
            <numerusform>%n landmarks imported</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n landmark(s) imported. Not as they are:</source>
        <translation>
            <numerusform>%n landmark imported. Not as they are:</numerusform>
            <numerusform>%n landmarks imported. Not as they are:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deleted %n landmark(s)</source>
        <translation>
            <numerusform>Deleted %n landmark</numerusform>
            <numerusform>Deleted %n landmarks</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Changed %n landmark(s)</source>
        <translation>
            <numerusform>Changed %n landmark</numerusform>
            <numerusform>Changed %n landmarks</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::LayerDock</name>
    <message numerus="yes">
        <source>%1 (%Ln item(s))</source>
        <translation>
            <numerusform>%1 (%Ln item)</numerusform>
            <numerusform>%1 (%Ln items)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln point(s)</source>
        <translation>
            <numerusform>%Ln point</numerusform>
            <numerusform>%Ln points</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln byte(s)</source>
        <translation>
            <numerusform>%Ln byte</numerusform>
            <numerusform>%Ln bytes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::MeasureTool</name>
    <message numerus="yes">
        <source>Last piece %1, all %n pieces %2</source>
        <translation>
            <numerusform>Last piece %1, %n piece %2</numerusform>
            <numerusform>Last piece %1, all %n pieces %2</numerusform>
        </translation>
    </message>
</context>
</TS>
