package tovu.local.saves;

import java.nio.charset.StandardCharsets;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;
import java.util.HexFormat;

/** The name that a file has for something whose name a federate has chosen, and which may be anything. */
final class FileName {
    private static final int LONGEST = 200; // leaves room for a suffix
    private static final int BEGINNING = 100;

    private FileName() {
    }

    /** Letters and digits stay, the rest becomes numbers: no two names are one file, and none leads to another folder. */
    static String of(String name) {
        StringBuilder escaped = new StringBuilder();
        for (char each : name.toCharArray()) {
            if (each < 128 && Character.isLetterOrDigit(each) || each == '-' || each == '_') {
                escaped.append(each);
            } else {
                escaped.append('%').append(HexFormat.of().toHexDigits(each));
            }
        }
        return escaped.length() == 0 ? "%" : escaped.length() <= LONGEST ? escaped.toString()
                : escaped.substring(0, BEGINNING) + "~" + digest(escaped.toString());
    }

    private static String digest(String text) {
        try {
            return HexFormat.of().formatHex(
                    MessageDigest.getInstance("SHA-256").digest(text.getBytes(StandardCharsets.US_ASCII)));
        } catch (NoSuchAlgorithmException e) {
            throw new IllegalStateException(e); // every Java has it
        }
    }
}
